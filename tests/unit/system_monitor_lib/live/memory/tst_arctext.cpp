#include "system_monitor_lib/live/memory/ArcText.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QtTest>

class ArcTextTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsWhatItGivesBack_data();
    void findsWhatItGivesBack();
};

void ArcTextTest::findsWhatItGivesBack_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<quint64>("kibibytes");
    const QByteArray head = "13 1 0x01 123 33456 1000 2000\n"
                            "name                            type data\n";
    const QByteArray least = "c_min                           4    1048576\n";
    const auto row = [&](const char *name, const QByteArray &text, quint64 kibibytes) {
        QTest::newRow(name) << text << kibibytes;
    };
    row("above its least", head + least + "size                            4    4194304\n", 3072);
    row("at its least", head + least + "size                            4    1048576\n", 0);
    row("below its least", head + least + "size                            4    1000\n", 0);
    row("least unknown", head + "size                            4    4194304\n", 0);
    row("other sizes", head + least + "size_other 4 9999999\ncompressed_size 4 4194304\n", 0);
    row("no number", head + least + "size                            4    much\n", 0);
    row("no type", head + least + "size                            4194304\n", 0);
    row("cut off", head + least + "size                            4    4194304", 0);
    row("empty", QByteArray(), 0);
}

void ArcTextTest::findsWhatItGivesBack()
{
    QFETCH(const QByteArray, text);
    QFETCH(const quint64, kibibytes);
    QCOMPARE(parseArcGivesBack(view(text)), kibibytes);
}

QTEST_APPLESS_MAIN(ArcTextTest)
#include "tst_arctext.moc"
