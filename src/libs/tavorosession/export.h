#pragma once

#include <QtGlobal>

#if defined(TAVOROSESSION_LIBRARY)
#define TAVOROSESSION_EXPORT Q_DECL_EXPORT
#else
#define TAVOROSESSION_EXPORT Q_DECL_IMPORT
#endif
