#pragma once

#include <QTest>

// A test waits for conditions. The limit only ends a test that fails: it is far above what a
// sanitizer and other programs on the machine can take from a thread. The five seconds of Qt Test
// are not.

#undef QTRY_VERIFY
#define QTRY_VERIFY(condition) QTRY_VERIFY_WITH_TIMEOUT((condition), 60000)

#undef QTRY_COMPARE
#define QTRY_COMPARE(actual, expected) QTRY_COMPARE_WITH_TIMEOUT((actual), (expected), 60000)

#undef QTRY_VERIFY2
#define QTRY_VERIFY2(condition, text) QTRY_VERIFY2_WITH_TIMEOUT((condition), (text), 60000)
