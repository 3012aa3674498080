#include "render/FontRegistry.h"

#include <QtTest>

class tst_FontRegistry : public QObject
{
    Q_OBJECT
};

QTEST_MAIN(tst_FontRegistry)
#include "tst_fontregistry.moc"
