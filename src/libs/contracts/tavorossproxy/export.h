#pragma once

#include <QtGlobal>

#if defined(TAVOROSSPROXY_LIBRARY)
#define TAVOROSSPROXY_EXPORT Q_DECL_EXPORT
#else
#define TAVOROSSPROXY_EXPORT Q_DECL_IMPORT
#endif
