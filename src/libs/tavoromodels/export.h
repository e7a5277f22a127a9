#pragma once

#include <QtGlobal>

#if defined(TAVOROMODELS_LIBRARY)
#define TAVOROMODELS_EXPORT Q_DECL_EXPORT
#else
#define TAVOROMODELS_EXPORT Q_DECL_IMPORT
#endif
