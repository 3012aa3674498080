#include "SDK/Logger/Logger.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/TemporaryWorkingDirectory.h"

#include <QDateTime>
#include <QFile>
#include <QLocale>
#include <QLoggingCategory>
#include <QRegularExpression>
#include <QtTest>

#include <atomic>
#include <memory>
#include <thread>

class tst_Logger : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    static void initTestCase();
    void init();
    void cleanup();

    void writesStampTagAndMessage();
    void stampsWithLeadingZeros();
    void stampIsTheLocalTimeOfTheCall();
    void writesUtf8WithCarriageReturnAndLineFeed();
    void keepsLineBreaksOfTheMessage();
    void keepsPlaceholdersOfTheMessage();
    void appendsToWhatIsThere();
    void recreatesADeletedFile();
    void followsTheWorkingDirectory();
    void losesTheLineWhenTheFileCannotBeOpened();
    void keepsLinesOfSeveralThreadsWhole();
    void debugSinkQuotesOneItem_data();
    void debugSinkQuotesOneItem();
    void debugSinkQuotesAsTheStreamDoes_data();
    void debugSinkQuotesAsTheStreamDoes();
    void debugSinkCanBeSilenced();
    void labelsAValue();

private:
    QByteArray log() const { return m_directory->content(QStringLiteral("log.txt")); }

    std::unique_ptr<TemporaryWorkingDirectory> m_directory;
};

/// This program is also run in a language with digits of its own.
void tst_Logger::initTestCase()
{
    if (qEnvironmentVariable("LC_ALL").startsWith(QLatin1String("fa_")))
        QCOMPARE(QLocale::system().zeroDigit(), QChar(0x6f0));
}

void tst_Logger::init()
{
    m_directory = std::make_unique<TemporaryWorkingDirectory>();
}

void tst_Logger::cleanup()
{
    m_directory.reset();
}

void tst_Logger::writesStampTagAndMessage()
{
    Logger(QStringLiteral("ws://127.0.0.1:5000"));
    const QRegularExpression line(
        QStringLiteral("^\\[\\d{4}-\\d\\d-\\d\\d \\d\\d:\\d\\d:\\d\\d\\] SDK/Logger "
                       "ws://127\\.0\\.0\\.1:5000\r\n$"));
    QVERIFY2(line.match(QString::fromUtf8(log())).hasMatch(), log().constData());
}

void tst_Logger::stampsWithLeadingZeros()
{
    const QDateTime time(QDate(2025, 3, 2), QTime(9, 5, 3));
    QCOMPARE(fileLogLine(time, QStringLiteral("x")),
             QByteArray("[2025-03-02 09:05:03] SDK/Logger x\r\n"));
    const QDateTime evening(QDate(2025, 12, 31), QTime(21, 45, 53));
    QCOMPARE(fileLogLine(evening, QString()), QByteArray("[2025-12-31 21:45:53] SDK/Logger \r\n"));
}

void tst_Logger::stampIsTheLocalTimeOfTheCall()
{
    const QDateTime now = QDateTime::currentDateTime();
    const QDateTime before = now.addMSecs(-now.time().msec());
    Logger(QStringLiteral("x"));
    const QDateTime after = QDateTime::currentDateTime();
    const QDateTime stamp = QLocale::c().toDateTime(QString::fromUtf8(log().mid(1, 19)),
                                                    QStringLiteral("yyyy-MM-dd hh:mm:ss"));
    QVERIFY(stamp.isValid());
    QVERIFY(stamp >= before && stamp <= after);
}

void tst_Logger::writesUtf8WithCarriageReturnAndLineFeed()
{
    Logger(QStringLiteral("网速"));
    QVERIFY(log().endsWith("SDK/Logger \xE7\xBD\x91\xE9\x80\x9F\r\n"));
}

void tst_Logger::keepsLineBreaksOfTheMessage()
{
    Logger(QStringLiteral("one\ntwo\r\nthree"));
    QVERIFY(log().endsWith(" one\ntwo\r\nthree\r\n"));
}

void tst_Logger::keepsPlaceholdersOfTheMessage()
{
    Logger(QStringLiteral("%1 %2 %3"));
    QVERIFY(log().endsWith("SDK/Logger %1 %2 %3\r\n"));
}

void tst_Logger::appendsToWhatIsThere()
{
    Logger(QStringLiteral("first"));
    Logger(QStringLiteral("second"));
    const QList<QByteArray> lines = log().split('\n');
    QCOMPARE(lines.size(), 3);
    QVERIFY(lines.at(0).endsWith(" first\r"));
    QVERIFY(lines.at(1).endsWith(" second\r"));
}

void tst_Logger::recreatesADeletedFile()
{
    Logger(QStringLiteral("gone"));
    QVERIFY(QFile::remove(QStringLiteral("log.txt")));
    Logger(QStringLiteral("new"));
    QCOMPARE(log().count("\r\n"), 1);
    QVERIFY(log().endsWith(" new\r\n"));
}

void tst_Logger::followsTheWorkingDirectory()
{
    const TemporaryWorkingDirectory other;
    Logger(QStringLiteral("there"));
    QVERIFY(other.content(QStringLiteral("log.txt")).endsWith(" there\r\n"));
    QVERIFY(log().isEmpty());
}

void tst_Logger::losesTheLineWhenTheFileCannotBeOpened()
{
    QVERIFY(QDir().mkdir(QStringLiteral("log.txt")));
    const MessageCapture capture;
    Logger(QStringLiteral("lost"));
    QCOMPARE(MessageCapture::messages(), QStringList());
    QVERIFY(QDir().rmdir(QStringLiteral("log.txt")));
    Logger(QStringLiteral("kept"));
    QCOMPARE(log().count("\r\n"), 1);
}

void tst_Logger::keepsLinesOfSeveralThreadsWhole()
{
    constexpr int linesPerThread = 200;
    constexpr int threads = 2;
    std::atomic<int> ready{0};
    const auto write = [&ready](QChar letter) {
        ++ready;
        while (ready < threads)
            std::this_thread::yield();
        for (int i = 0; i < linesPerThread; ++i)
            Logger(QString(100, letter));
    };
    std::thread first(write, QLatin1Char('a'));
    std::thread second(write, QLatin1Char('b'));
    first.join();
    second.join();

    QList<QByteArray> lines = log().split('\n');
    QVERIFY(lines.takeLast().isEmpty());
    QCOMPARE(lines.size(), 2 * linesPerThread);
    int ofFirst = 0;
    for (const QByteArray &line : qAsConst(lines)) {
        const bool isFirst = line.endsWith(" " + QByteArray(100, 'a') + '\r');
        QVERIFY(isFirst || line.endsWith(" " + QByteArray(100, 'b') + '\r'));
        QVERIFY(line.startsWith('['));
        ofFirst += isFirst ? 1 : 0;
    }
    QCOMPARE(ofFirst, linesPerThread);
}

void tst_Logger::debugSinkQuotesOneItem_data()
{
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("printed");
    QTest::newRow("plain") << QStringLiteral("updateImages") << QStringLiteral("\"updateImages\"");
    QTest::newRow("chinese") << QStringLiteral("插件启动") << QStringLiteral("\"插件启动\"");
    QTest::newRow("quotes") << QStringLiteral("{\"a\":1}") << QStringLiteral("\"{\\\"a\\\":1}\"");
    QTest::newRow("empty") << QString() << QStringLiteral("\"\"");
}

void tst_Logger::debugSinkQuotesOneItem()
{
    QFETCH(QString, message);
    QFETCH(QString, printed);
    const MessageCapture capture;
    LogDebug(message);
    QCOMPARE(MessageCapture::messages(), QStringList(printed));
    QVERIFY(log().isEmpty());
}

void tst_Logger::debugSinkQuotesAsTheStreamDoes_data()
{
    QTest::addColumn<QString>("message");
    for (ushort character = 0; character < 0x180; ++character)
        QTest::addRow("U+%04x", character) << QString(QChar(character));
    for (const int character : {0x200b, 0x4e2d, 0xd83e, 0xdd8a, 0xe000, 0xfeff, 0xffff})
        QTest::addRow("U+%04x", character) << QString(QChar(character));
    QTest::newRow("amid others") << QStringLiteral("up\tto \"down\" in C:\\x");
    QTest::newRow("beyond the basic plane") << QString::fromUtf8("a\U0001F98Ab");
}

void tst_Logger::debugSinkQuotesAsTheStreamDoes()
{
    QFETCH(QString, message);
    const MessageCapture capture;
    qDebug() << message;
    LogDebug(message);
    const QStringList messages = MessageCapture::messages();
    QCOMPARE(messages.size(), 2);
    QCOMPARE(messages.at(1), messages.at(0));
}

void tst_Logger::debugSinkCanBeSilenced()
{
    const MessageCapture capture;
    QLoggingCategory::setFilterRules(QStringLiteral("default.debug=false"));
    LogDebug(QStringLiteral("plain"));
    LogDebug(QStringLiteral("插件启动"));
    QLoggingCategory::setFilterRules(QString());
    QCOMPARE(MessageCapture::messages(), QStringList());
    LogDebug(QStringLiteral("plain"));
    QCOMPARE(MessageCapture::messages(), QStringList(QStringLiteral("\"plain\"")));
}

void tst_Logger::labelsAValue()
{
    QCOMPARE(labelled("Connect-serverPort: ", 24509), QStringLiteral("Connect-serverPort: 24509"));
    QCOMPARE(labelled("当前进程名:", QStringLiteral("x")), QStringLiteral("当前进程名:x"));
    QCOMPARE(labelled("", QString()), QString());
}

QTEST_GUILESS_MAIN(tst_Logger)
#include "tst_logger.moc"
