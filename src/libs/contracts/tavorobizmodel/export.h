#pragma once

#include <QtGlobal>

#if defined(TAVOROBIZMODEL_LIBRARY)
#define TAVOROBIZMODEL_EXPORT Q_DECL_EXPORT
#else
#define TAVOROBIZMODEL_EXPORT Q_DECL_IMPORT
#endif
