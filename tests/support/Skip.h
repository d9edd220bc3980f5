#pragma once

#include <QtTest/QTest>

/** Leaves a test with the reason why it cannot run here. Qt's macro misses an argument in clang. */
#define ZT_SKIP(reason)                                                                            \
    do {                                                                                           \
        QTest::qSkip(reason, __FILE__, __LINE__);                                                  \
        return;                                                                                    \
    } while (false)
