#include "system_monitor_lib/recorded/RecordedSource.h"
#include "system_monitor_lib/recorded/Recording.h"
#include "tests/unit/system_monitor_lib/files.h"
#include "tests/unit/system_monitor_lib/labels.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

int warnings = 0;
QtMessageHandler previousHandler = nullptr;

void countWarnings(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg)
        ++warnings;
    else
        previousHandler(type, context, message);
}

const QString load = QStringLiteral("Physical Memory Load");

QByteArray recording(int memoryLoad)
{
    return QStringLiteral(
               R"({"getSystemInfo":{"Physical Memory Load":[{"value":%1,"units":"%"}]}})")
        .arg(memoryLoad)
        .toUtf8();
}

} // namespace

class RecordedSourceTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void everyOperationHasItsMember_data();
    void everyOperationHasItsMember();
    void otherMembersArePassedOver();
    void memberOfWrongTypeIsRemarked_data();
    void memberOfWrongTypeIsRemarked();
    void refusesWhatIsNoRecording_data();
    void refusesWhatIsNoRecording();

    void missingMemberIsAnEmptyTree();
    void changedFileIsReadAgain();
    void replacedFileIsReadAgain();
    void missingFileIsOneLine();
    void fileThatComesLaterIsServed();
    void deletedFileLeavesTheLastTrees();
    void brokenFileIsOneLinePerChange();
    void wrongTypeIsOneLine();
    void hugeFileIsRefused();
    void directoryIsRefused();
    void relativePathOutlivesAChangeOfFolder();

private:
    double served(RecordedSource &source) { return value(source.tree(Query::SystemInfo), load); }

    std::unique_ptr<QTemporaryDir> m_directory;
    QString m_path;
};

void RecordedSourceTest::init()
{
    m_directory = std::make_unique<QTemporaryDir>();
    QVERIFY(m_directory->isValid());
    m_path = m_directory->filePath(QStringLiteral("recording.json"));
    warnings = 0;
    previousHandler = qInstallMessageHandler(countWarnings);
}

void RecordedSourceTest::cleanup()
{
    qInstallMessageHandler(previousHandler);
    m_directory.reset();
}

void RecordedSourceTest::everyOperationHasItsMember_data()
{
    QTest::addColumn<QString>("member");
    QTest::addColumn<int>("query");

    const auto row = [](const char *member, Query query) {
        QTest::newRow(member) << QString::fromLatin1(member) << static_cast<int>(query);
    };
    row("getSystemInfo", Query::SystemInfo);
    row("getMemoryTimingsInfo", Query::MemoryTimingsInfo);
    row("getCPUInfo", Query::CpuInfo);
    row("getCPUDTSInfo", Query::CpuDtsInfo);
    row("getCPUEnhancedInfo", Query::CpuEnhancedInfo);
    row("getGPUInfo", Query::GpuInfo);
    row("getNetworkInfo", Query::NetworkInfo);
    row("getSMARTInfo", Query::SmartInfo);
    row("getPresentMon", Query::PresentMon);
    row("getAllSensorsData", Query::AllSensorsData);
}

void RecordedSourceTest::everyOperationHasItsMember()
{
    QFETCH(const QString, member);
    QFETCH(const int, query);
    const auto parsed =
        parseRecording(QStringLiteral(R"({"%1":{"label":7}})").arg(member).toUtf8());
    const auto *good = std::get_if<Recording>(&parsed);
    QVERIFY(good != nullptr);
    QVERIFY(good->remarks.isEmpty());
    for (int other = 0; other < static_cast<int>(queryCount); ++other) {
        const QJsonObject tree = good->trees.tree(static_cast<Query>(other));
        QCOMPARE(tree.value(QStringLiteral("label")).toInt(), other == query ? 7 : 0);
        QCOMPARE(tree.isEmpty(), other != query);
    }
}

void RecordedSourceTest::otherMembersArePassedOver()
{
    const auto parsed = parseRecording(R"({"comment":"my machine","version":3})");
    const auto *good = std::get_if<Recording>(&parsed);
    QVERIFY(good != nullptr);
    QVERIFY(good->remarks.isEmpty());
}

void RecordedSourceTest::memberOfWrongTypeIsRemarked_data()
{
    QTest::addColumn<QByteArray>("wrong");
    QTest::newRow("array") << QByteArray("[]");
    QTest::newRow("number") << QByteArray("1e308");
    QTest::newRow("text") << QByteArray("\"x\"");
    QTest::newRow("null") << QByteArray("null");
    QTest::newRow("bool") << QByteArray("true");
}

void RecordedSourceTest::memberOfWrongTypeIsRemarked()
{
    QFETCH(const QByteArray, wrong);
    const auto parsed = parseRecording(R"({"getCPUInfo":)" + wrong + R"(,"getGPUInfo":{"a":{}}})");
    const auto *good = std::get_if<Recording>(&parsed);
    QVERIFY(good != nullptr);
    QCOMPARE(good->remarks, QStringList{QStringLiteral("getCPUInfo is not an object")});
    QVERIFY(good->trees.tree(Query::CpuInfo).isEmpty());
    QCOMPARE(good->trees.tree(Query::GpuInfo).keys(), QStringList{QStringLiteral("a")});
}

void RecordedSourceTest::refusesWhatIsNoRecording_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("cut") << recording(5).chopped(3);
    QTest::newRow("array") << QByteArray("[{}]");
    QTest::newRow("text") << QByteArray("\"getCPUInfo\"");
    QTest::newRow("noise") << QByteArray(1000, '\xfe');
    QTest::newRow("trailing") << recording(5) + "x";
    QTest::newRow("nested too deep") << QByteArray(R"({"getCPUInfo":)") + QByteArray(100000, '[');
}

void RecordedSourceTest::refusesWhatIsNoRecording()
{
    QFETCH(const QByteArray, json);
    const auto parsed = parseRecording(json);
    const auto *complaint = std::get_if<QString>(&parsed);
    QVERIFY(complaint != nullptr);
    QVERIFY(!complaint->isEmpty());
}

void RecordedSourceTest::missingMemberIsAnEmptyTree()
{
    QVERIFY(writeFile(m_path, recording(40)));
    RecordedSource source(m_path);
    QVERIFY(source.open());
    QCOMPARE(served(source), 40.0);
    QVERIFY(source.tree(Query::CpuInfo).isEmpty());
    QVERIFY(source.tree(Query::AllSensorsData).isEmpty());
    QCOMPARE(warnings, 0);
}

void RecordedSourceTest::changedFileIsReadAgain()
{
    QVERIFY(writeFile(m_path, recording(40)));
    RecordedSource source(m_path);
    QVERIFY(source.open());
    // Overwritten at once with the same length: size and time may be the same.
    for (int memoryLoad = 41; memoryLoad < 60; ++memoryLoad) {
        QVERIFY(writeFile(m_path, recording(memoryLoad)));
        QCOMPARE(served(source), static_cast<double>(memoryLoad));
    }
    QCOMPARE(warnings, 0);
}

void RecordedSourceTest::replacedFileIsReadAgain()
{
    QVERIFY(writeFile(m_path, recording(40)));
    RecordedSource source(m_path);
    QVERIFY(source.open());
    QVERIFY(replaceFile(m_path, recording(41)));
    QCOMPARE(served(source), 41.0);
    QCOMPARE(warnings, 0);
}

void RecordedSourceTest::missingFileIsOneLine()
{
    RecordedSource source(m_path);
    QVERIFY(!source.open());
    for (int query = 0; query < static_cast<int>(queryCount); ++query)
        QVERIFY(source.tree(static_cast<Query>(query)).isEmpty());
    QCOMPARE(warnings, 1);
}

void RecordedSourceTest::fileThatComesLaterIsServed()
{
    RecordedSource source(m_path);
    QVERIFY(!source.open());
    QVERIFY(writeFile(m_path, recording(40)));
    QCOMPARE(served(source), 40.0);
    QCOMPARE(warnings, 1);
}

void RecordedSourceTest::deletedFileLeavesTheLastTrees()
{
    QVERIFY(writeFile(m_path, recording(40)));
    RecordedSource source(m_path);
    QVERIFY(source.open());
    QVERIFY(QFile::remove(m_path));
    QCOMPARE(served(source), 40.0);
    QCOMPARE(served(source), 40.0);
    QCOMPARE(warnings, 1);
    QVERIFY(writeFile(m_path, recording(41)));
    QCOMPARE(served(source), 41.0);
    QVERIFY(QFile::remove(m_path));
    QCOMPARE(served(source), 41.0);
    QCOMPARE(warnings, 2);
}

void RecordedSourceTest::brokenFileIsOneLinePerChange()
{
    QVERIFY(writeFile(m_path, recording(40)));
    RecordedSource source(m_path);
    QVERIFY(source.open());
    QVERIFY(writeFile(m_path, "{"));
    QCOMPARE(served(source), 40.0);
    QCOMPARE(served(source), 40.0);
    QCOMPARE(warnings, 1);
    QVERIFY(writeFile(m_path, "[]"));
    QCOMPARE(served(source), 40.0);
    QCOMPARE(warnings, 2);
    QVERIFY(writeFile(m_path, QByteArray()));
    QCOMPARE(served(source), 40.0);
    QCOMPARE(warnings, 3);
    QVERIFY(writeFile(m_path, recording(41)));
    QCOMPARE(served(source), 41.0);
    QCOMPARE(warnings, 3);
}

void RecordedSourceTest::wrongTypeIsOneLine()
{
    QVERIFY(writeFile(m_path, R"({"getSystemInfo":[],"getCPUInfo":{"a":1}})"));
    RecordedSource source(m_path);
    QVERIFY(source.open());
    QVERIFY(source.tree(Query::SystemInfo).isEmpty());
    QCOMPARE(source.tree(Query::CpuInfo).keys(), QStringList{QStringLiteral("a")});
    QCOMPARE(warnings, 1);
}

void RecordedSourceTest::hugeFileIsRefused()
{
    QVERIFY(writeFile(m_path, recording(40)));
    RecordedSource source(m_path);
    QVERIFY(source.open());
    QVERIFY(QFile::resize(m_path, RecordedSource::largestFile + 1));
    QCOMPARE(served(source), 40.0);
    QCOMPARE(served(source), 40.0);
    QCOMPARE(warnings, 1);
}

void RecordedSourceTest::directoryIsRefused()
{
    RecordedSource source(m_directory->path());
    QVERIFY(!source.open());
    QVERIFY(source.tree(Query::SystemInfo).isEmpty());
    QCOMPARE(warnings, 1);
}

void RecordedSourceTest::relativePathOutlivesAChangeOfFolder()
{
    const QString folder = QDir::currentPath();
    QVERIFY(writeFile(m_path, recording(40)));
    QVERIFY(QDir::setCurrent(m_directory->path()));
    RecordedSource source(QStringLiteral("recording.json"));
    QVERIFY(QDir::setCurrent(folder));
    QVERIFY(source.open());
    QCOMPARE(served(source), 40.0);
}

QTEST_GUILESS_MAIN(RecordedSourceTest)
#include "tst_recordedsource.moc"
