#include "tests/support/FakeHost.h"

#include <QCoreApplication>

#include <cstdio>

/// A host in a process of its own. It prints the command line on which it wants the plugin started,
/// and "registered" once it is, and stays until it is killed.
int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const FakeHost host;
    std::puts(qPrintable(host.arguments().join(QLatin1Char(' '))));
    std::fflush(stdout);
    if (host.waitForRegistration())
        std::puts("registered");
    std::fflush(stdout);
    return QCoreApplication::exec();
}
