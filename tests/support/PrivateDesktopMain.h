#pragma once

#include "support/PrivateDesktop.h"

#include <QApplication>
#include <QTest>

#include <cstdio>
#include <stdexcept>

namespace tintwick {

/// Runs a test class as a client of a private desktop. Qt connects to the display of the process
/// at its start, so the program starts itself a second time on that desktop.
template <typename Test>
int runOnPrivateDesktop(int argc, char** argv, const PrivateDesktop::Options& options)
{
    const QByteArray inside = "TINTWICK_TEST_IS_ON_PRIVATE_DESKTOP";
    if (qEnvironmentVariableIsSet(inside.constData())) {
        const QApplication application(argc, argv);
        Test test;
        return QTest::qExec(&test, argc, argv);
    }

    const QCoreApplication application(argc, argv);
    try {
        PrivateDesktop desktop(options);
        QProcessEnvironment additions;
        additions.insert(QString::fromLatin1(inside), QStringLiteral("1"));
        additions.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
        const auto program = desktop.start(QCoreApplication::applicationFilePath(),
                                           QCoreApplication::arguments().sliced(1), additions);
        const auto status = program->waitForEnd(std::chrono::seconds(100));
        std::fputs(program->standardOutput().constData(), stdout);
        std::fputs(program->standardError().constData(), stderr);
        return status.value_or(1);
    } catch (const std::runtime_error& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}

} // namespace tintwick
