#pragma once

#include <QtGlobal>

#if defined(TAVOROPROTO_LIBRARY)
#define TAVOROPROTO_EXPORT Q_DECL_EXPORT
#else
#define TAVOROPROTO_EXPORT Q_DECL_IMPORT
#endif
