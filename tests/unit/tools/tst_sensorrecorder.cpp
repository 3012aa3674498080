#include "system_monitor_lib/recorded/RecordedSource.h"
#include "tests/support/Waits.h"
#include "tools/sensor_recorder/SensorRecorder.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// Gives a tree that contains how often it was queried.
class CountingSource : public TreeSource
{
public:
    bool open() override { return true; }

    QJsonObject tree(Query query) override
    {
        if (query != Query::CpuInfo)
            return {};
        return {{QStringLiteral("Total CPU Usage"), reading(++m_asked, QStringLiteral("%"))}};
    }

private:
    int m_asked = 0;
};

QStringList arguments(const QStringList &given)
{
    return QStringList{QStringLiteral("sensor_recorder")} + given;
}

} // namespace

class SensorRecorderTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void readsItsCommandLine();
    void refusesACommandLine_data();
    void refusesACommandLine();
    void numbersItsFiles_data();
    void numbersItsFiles();
    void takesAddressesOut_data();
    void takesAddressesOut();
    void takesSerialNumbersOut();
    void keepsDifferentAddressesApart();
    void writesWhatCanBeReplayed();
    void saysWhyItCannotWrite();
};

void SensorRecorderTest::readsItsCommandLine()
{
    const auto parsed = parseRecorderOptions(
        arguments({QStringLiteral("--samples"), QStringLiteral("3"),
                   QStringLiteral("--interval=2.5"), QStringLiteral("my.json")}));
    const auto *options = std::get_if<RecorderOptions>(&parsed);
    QVERIFY(options);
    QCOMPARE(options->file, QStringLiteral("my.json"));
    QCOMPARE(options->samples, 3);
    QCOMPARE(options->intervalMs, 2500);

    const auto help = parseRecorderOptions(arguments({QStringLiteral("--help")}));
    const auto *message = std::get_if<RecorderMessage>(&help);
    QVERIFY(message);
    QCOMPARE(message->status, 0);
    QVERIFY(message->text.contains(QStringLiteral("serial numbers")));
    QVERIFY(message->text.contains(QLatin1String("FILE-1.json"))); // see sampleFile
}

void SensorRecorderTest::refusesACommandLine_data()
{
    QTest::addColumn<QString>("line");
    QTest::newRow("no file") << QString();
    QTest::newRow("two files") << QStringLiteral("a b");
    QTest::newRow("unknown option") << QStringLiteral("--fast a");
    QTest::newRow("no samples") << QStringLiteral("--samples 0 a");
    QTest::newRow("letters") << QStringLiteral("--samples many a");
    QTest::newRow("too many") << QStringLiteral("--samples 100001 a");
    QTest::newRow("too fast") << QStringLiteral("--interval 0.1 a");
    QTest::newRow("too slow") << QStringLiteral("--interval 1e9 a");
    QTest::newRow("no number") << QStringLiteral("--interval nan a");
}

void SensorRecorderTest::refusesACommandLine()
{
    QFETCH(const QString, line);
    const auto parsed =
        parseRecorderOptions(arguments(line.split(QLatin1Char(' '), Qt::SkipEmptyParts)));
    const auto *message = std::get_if<RecorderMessage>(&parsed);
    QVERIFY(message);
    QCOMPARE(message->status, 2);
    QVERIFY(message->text.endsWith(QLatin1Char('\n')));
}

void SensorRecorderTest::numbersItsFiles_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("samples");
    QTest::addColumn<QString>("second");
    QTest::newRow("one") << QStringLiteral("a.json") << 1 << QStringLiteral("a.json");
    QTest::newRow("two") << QStringLiteral("a.json") << 2 << QStringLiteral("a-2.json");
    QTest::newRow("no ending") << QStringLiteral("a") << 2 << QStringLiteral("a-2");
    QTest::newRow("dot in the folder") << QStringLiteral("x.d/a") << 2 << QStringLiteral("x.d/a-2");
}

void SensorRecorderTest::numbersItsFiles()
{
    QFETCH(const QString, file);
    QFETCH(const int, samples);
    QTEST(sampleFile({file, samples, 1000}, 2), "second");
}

void SensorRecorderTest::takesAddressesOut_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("left");
    QTest::newRow("colons") << QStringLiteral("Network: 00:1B:44:11:3a:b7!")
                            << QStringLiteral("Network: (address 1)!");
    QTest::newRow("dashes") << QStringLiteral("00-1b-44-11-3a-b7") << QStringLiteral("(address 1)");
    QTest::newRow("adapter's name")
        << QStringLiteral("enx001b44113ab7") << QStringLiteral("enx(address 1)");
    QTest::newRow("the same twice") << QStringLiteral("enx001b44113ab7 00:1b:44:11:3a:b7")
                                    << QStringLiteral("enx(address 1) (address 1)");
    QTest::newRow("place of a device")
        << QStringLiteral("GPU (0000:03:00.0)") << QStringLiteral("GPU (0000:03:00.0)");
    QTest::newRow("usual adapter") << QStringLiteral("enp0s31f6") << QStringLiteral("enp0s31f6");
}

void SensorRecorderTest::takesAddressesOut()
{
    QFETCH(const QString, name);
    const QJsonObject tree{{QStringLiteral("getNetworkInfo"), QJsonObject{{name, QJsonObject()}}}};
    QFETCH(const QString, left);
    const QJsonObject expected{
        {QStringLiteral("getNetworkInfo"), QJsonObject{{left, QJsonObject()}}}};
    QCOMPARE(Anonymizer().anonymized(tree), expected);
}

void SensorRecorderTest::takesSerialNumbersOut()
{
    const QJsonObject kept{{QStringLiteral("Drive Temperature"), reading(30, QStringLiteral("C"))}};
    QJsonObject drive = kept;
    drive.insert(QStringLiteral("Serial Number"), QStringLiteral("WD-123"));
    const QString disk = QStringLiteral("disk");
    const QJsonObject expected{{disk, kept}};
    QCOMPARE(Anonymizer().anonymized(QJsonObject{{disk, drive}}), expected);
}

void SensorRecorderTest::keepsDifferentAddressesApart()
{
    Anonymizer anonymizer;
    const QJsonObject adapters{{QStringLiteral("enx001b44113ab7"), 1},
                               {QStringLiteral("enx001b44113ab8"), 2}};
    const QJsonObject expected{{QStringLiteral("enx(address 1)"), 1},
                               {QStringLiteral("enx(address 2)"), 2}};
    QCOMPARE(anonymizer.anonymized(adapters), expected);
    QCOMPARE(anonymizer.anonymized(adapters), expected);
}

void SensorRecorderTest::writesWhatCanBeReplayed()
{
    const QTemporaryDir directory;
    CountingSource source;
    SensorRecorder recorder({directory.filePath(QStringLiteral("a.json")), 2, 1}, source);
    const QSignalSpy finished(&recorder, &SensorRecorder::sigFinished);
    recorder.start();
    QTRY_COMPARE(finished.size(), 1);
    QCOMPARE(finished.at(0).at(0).toString(), QString());
    for (int sample = 1; sample <= 2; ++sample) {
        RecordedSource replay(directory.filePath(QStringLiteral("a-%1.json").arg(sample)));
        QVERIFY(replay.open());
        const QJsonObject expected{
            {QStringLiteral("Total CPU Usage"), reading(sample, QStringLiteral("%"))}};
        QCOMPARE(replay.tree(Query::CpuInfo), expected);
        QVERIFY(replay.tree(Query::GpuInfo).isEmpty());
    }
}

void SensorRecorderTest::saysWhyItCannotWrite()
{
    const QTemporaryDir directory;
    CountingSource source;
    SensorRecorder recorder({directory.filePath(QStringLiteral("none/a.json")), 1, 1}, source);
    const QSignalSpy finished(&recorder, &SensorRecorder::sigFinished);
    recorder.start();
    QTRY_COMPARE(finished.size(), 1);
    QVERIFY(finished.at(0).at(0).toString().contains(QStringLiteral("none/a.json: ")));
}

QTEST_GUILESS_MAIN(SensorRecorderTest)
#include "tst_sensorrecorder.moc"
