#pragma once

#include <QtGlobal>

#if defined(TAVOROCONTROL_LIBRARY)
#define TAVOROCONTROL_EXPORT Q_DECL_EXPORT
#else
#define TAVOROCONTROL_EXPORT Q_DECL_IMPORT
#endif
