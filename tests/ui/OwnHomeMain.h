#pragma once

#include "support/QuickTemporaryDir.h"

#include <QApplication>
#include <QTest>

namespace tintwick::test {

/// Runs the tests of a class as the program with a new home: what they keep and choose is not the user's own.
template <typename Test>
int runWithOwnHome(int argc, char** argv)
{
    const auto home = test::quickTemporaryDir();
    qputenv("XDG_DATA_HOME", home->path().toUtf8());
    qputenv("XDG_CONFIG_HOME", home->path().toUtf8());
    const QApplication application(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("Tintwick"));
    QApplication::setApplicationName(QStringLiteral("Tintwick"));
    QApplication::setApplicationVersion(QStringLiteral("1.0.0"));
    Test test;
    return QTest::qExec(&test, argc, argv);
}

} // namespace tintwick::test
