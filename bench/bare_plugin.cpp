// The least that a plugin made with Qt takes.

#include "bench/BarePlugin.h"

#include <QGuiApplication>

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    return runBarePlugin();
}
