#include "system_monitor_lib/live/board/FanNames.h"

#include <QtTest>

namespace {

/// "nct6798: fan1=fan1, fan2=CPU_FAN; acpitz:" and so on: drivers, headers and labels.
std::vector<FanChip> parsed(const QString &text)
{
    std::vector<FanChip> chips;
    for (const QString &chip : text.split(QStringLiteral("; "), Qt::SkipEmptyParts)) {
        FanChip fans{chip.section(QStringLiteral(": "), 0, 0), {}};
        for (const QString &fan :
             chip.section(QStringLiteral(": "), 1).split(QStringLiteral(", "), Qt::SkipEmptyParts))
            fans.fans.push_back(
                {fan.section(QLatin1Char('='), 1), fan.section(QLatin1Char('='), 0, 0)});
        chips.push_back(fans);
    }
    return chips;
}

QString text(const std::optional<FanPlace> &fan)
{
    return fan ? QStringLiteral("%1 %2").arg(fan->chip).arg(fan->label) : QString();
}

} // namespace

class FanNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knowsTheProcessorsFan_data();
    void knowsTheProcessorsFan();
    void knowsThePump_data();
    void knowsThePump();
};

void FanNamesTest::knowsTheProcessorsFan_data()
{
    QTest::addColumn<QString>("chips");
    QTest::addColumn<QString>("fan");
    const auto row = [](const char *name, const char *chips, const char *fan) {
        QTest::newRow(name) << QString::fromLatin1(chips) << QString::fromLatin1(fan);
    };
    row("no chips", "", "");
    row("told already", "dell_smm: fan1=Processor Fan; x: fan1=cpu_fan", "");
    row("in other words", "dell_smm: fan1=Motherboard Fan, fan2=Processor Fan", "0 Processor Fan");
    row("a second header", "asusec: fan1=CPU_Opt; nct6798: fan2=fan2", "0 CPU_Opt");
    row("Nuvoton", "nct6798: fan1=fan1, fan2=fan2, fan3=fan3", "0 fan2");
    row("ITE", "acpitz: ; it8689: fan1=fan1, fan2=fan2", "1 fan1");
    row("the second ITE of a board", "it8688: fan1=fan1; it8792: fan1=fan1", "0 fan1");
    row("the second ITE alone", "it8792: fan1=fan1", "");
    row("laptop", "thinkpad: fan1=fan1, fan2=fan2", "0 fan1");
    row("two that might be", "nct6798: fan2=fan2; it8689: fan1=fan1", "");
    row("the user calls it otherwise", "nct6798: fan1=fan1, fan2=Front", "");
    row("unknown maker", "applesmc: fan1=fan1, fan2=fan2", "");
    row("a pump of the processor's", "nct6798: fan7=CPU Pump", "");
}

void FanNamesTest::knowsTheProcessorsFan()
{
    QFETCH(const QString, chips);
    QFETCH(const QString, fan);
    QCOMPARE(text(cpuFan(parsed(chips))), fan);
}

void FanNamesTest::knowsThePump_data()
{
    QTest::addColumn<QString>("chips");
    QTest::addColumn<QString>("pump");
    const auto row = [](const char *name, const char *chips, const char *pump) {
        QTest::newRow(name) << QString::fromLatin1(chips) << QString::fromLatin1(pump);
    };
    row("no chips", "", "");
    row("told already", "nct6798: fan7=aio pump; z53: fan1=Pump speed", "");
    row("water cooler", "nct6798: fan2=Pump Fan; x53: fan1=Pump speed, fan2=Fan speed",
        "1 Pump speed");
    row("an older one", "kraken2: fan1=Fan, fan2=Pump", "0 Pump");
    row("the board's header", "asusec: fan1=Water Pump, fan2=AIO_PUMP", "0 AIO_PUMP");
    row("any pump", "d5next: fan1=Pump speed, fan2=Fan speed", "0 Pump speed");
    row("no pump", "nct6798: fan1=fan1, fan2=fan2", "");
}

void FanNamesTest::knowsThePump()
{
    QFETCH(const QString, chips);
    QFETCH(const QString, pump);
    QCOMPARE(text(aioPump(parsed(chips))), pump);
}

QTEST_APPLESS_MAIN(FanNamesTest)
#include "tst_fannames.moc"
