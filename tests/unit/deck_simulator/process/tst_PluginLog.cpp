#include "deck_simulator/process/PluginLog.h"
#include "tests/support/Waits.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

class tst_PluginLog : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void followsBothStreams();
    void readsTheRestAtTheEnd();
    void tells();

private:
    void append(const char *file, const QByteArray &text);
    [[nodiscard]] QString path(const char *file) const
    {
        return m_folder->filePath(QString::fromLatin1(file));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
};

void tst_PluginLog::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_PluginLog::append(const char *name, const QByteArray &text)
{
    QFile file(path(name));
    QVERIFY(file.open(QIODevice::Append));
    QCOMPARE(file.write(text), qint64(text.size()));
}

void tst_PluginLog::followsBothStreams()
{
    PluginLog log;
    QSignalSpy added(&log, &PluginLog::lineAdded);
    log.follow(m_folder->path());
    append("log.txt", "a line of the file\n");
    append("plugin-stderr.txt", "a line of the stream\n");
    QTRY_COMPARE(added.count(), 2);
    QCOMPARE(log.lines().matching({true, false, {}}),
             QStringList{QStringLiteral("a line of the file")});
    const QStringList stream = log.lines().matching({false, true, {}});
    QCOMPARE(stream.size(), 1);
    const QRegularExpression timed(QStringLiteral("^\\d\\d:\\d\\d:\\d\\d  a line of the stream$"));
    QVERIFY2(timed.match(stream.at(0)).hasMatch(), qPrintable(stream.at(0)));
    log.clear();
    QCOMPARE(log.lines().size(), 0);
}

void tst_PluginLog::readsTheRestAtTheEnd()
{
    PluginLog log;
    log.follow(m_folder->path());
    append("plugin-stderr.txt", "Segmentation fault");
    log.finish();
    QCOMPARE(log.lines().size(), 1);
    QVERIFY(log.lines().matching({}).at(0).endsWith(QLatin1String("Segmentation fault")));
    log.follow(m_folder->path()); // the next plugin
    append("log.txt", "new\n");
    const QStringList expected{QStringLiteral("new")};
    QTRY_COMPARE(log.lines().matching({true, false, {}}), expected);
}

void tst_PluginLog::tells()
{
    PluginLog log;
    log.tell(QStringLiteral("The plugin has ended.\nWith a reason."));
    const QStringList lines = log.lines().matching({});
    QCOMPARE(lines.size(), 2);
    QVERIFY(lines.at(0).endsWith(QLatin1String("The plugin has ended.")));
    // It is shown whichever stream is chosen.
    QCOMPARE(log.lines().matching({false, true, {}}).size(), 2);
}

QTEST_GUILESS_MAIN(tst_PluginLog)
#include "tst_PluginLog.moc"
