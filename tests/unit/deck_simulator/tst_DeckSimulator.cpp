#include "deck_simulator/ContactSheet.h"

#include <QDir>
#include <QImage>
#include <QProcess>
#include <QTemporaryDir>
#include <QtTest>

// The built program with a scripted plugin, as a user runs it: no display, output to a file.
class tst_DeckSimulator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void writesASnapshot();
    void failsWhenAKeyStaysEmpty();
    void failsWhenTheSnapshotCannotBeWritten();
    void endsByItself();
    void endsOnTermination();
    void staysQuiet();
    void reportsAPluginThatEndsAtOnce();
    void refusesWrongUsage();

private:
    void start(const char *script, const QStringList &arguments);
    void run(const char *script, const QStringList &arguments);
    [[nodiscard]] QString output() { return QString::fromUtf8(m_process.readAllStandardOutput()); }
    [[nodiscard]] QString errors()
    {
        return QString::fromLocal8Bit(m_process.readAllStandardError());
    }
    [[nodiscard]] QString path(const char *name) const
    {
        return m_folder->filePath(QString::fromLatin1(name));
    }

    std::unique_ptr<QTemporaryDir> m_folder;
    QProcess m_process;
};

void tst_DeckSimulator::init()
{
    m_folder = std::make_unique<QTemporaryDir>();
    QVERIFY(m_folder->isValid());
}

void tst_DeckSimulator::start(const char *script, const QStringList &arguments)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("SCRIPT"), QString::fromLatin1(script));
    for (const char *name : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM"})
        environment.remove(QString::fromLatin1(name));
    m_process.setProcessEnvironment(environment);
    m_process.start(QStringLiteral(DECK_SIMULATOR),
                    QStringList{QStringLiteral("--plugin"), QStringLiteral(SCRIPTED_PLUGIN),
                                QStringLiteral("--work-dir"), path("work")} +
                        arguments);
    QVERIFY(m_process.waitForStarted());
}

void tst_DeckSimulator::run(const char *script, const QStringList &arguments)
{
    start(script, arguments);
    QVERIFY(m_process.waitForFinished());
    QCOMPARE(m_process.exitStatus(), QProcess::NormalExit);
}

void tst_DeckSimulator::writesASnapshot()
{
    run("draw",
        {QStringLiteral("--snapshot"), path("deck.png"), QStringLiteral("--after"),
         QStringLiteral("0.5"), QStringLiteral("--columns=4"), QStringLiteral("--key-size=96")});
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    const ContactSheetStyle style{4, 96};
    const QImage sheet(path("deck.png"));
    QCOMPARE(sheet.size(), sheetSize(13, style));
    for (int index = 0; index < 13; ++index)
        QCOMPARE(sheet.pixel(sheetKeyRect(index, style).center()), qRgb(255, 0, 0));
    QVERIFY(sheet.pixel(sheetKeyRect(13, style).center()) != qRgb(255, 0, 0));

    const QString table = output();
    QVERIFY2(table.contains(QLatin1String("CPU usage")), qPrintable(table));
    QVERIFY(table.contains(QLatin1String("60x20")));
    QVERIFY(!table.contains(QChar(0x1b)));
}

void tst_DeckSimulator::failsWhenAKeyStaysEmpty()
{
    run("half", {QStringLiteral("--snapshot"), path("deck.png"), QStringLiteral("--after=0.5")});
    QCOMPARE(m_process.exitCode(), 1);
    const QString text = errors();
    QVERIFY2(text.contains(QLatin1String("drawn nothing on: Memory load;")), qPrintable(text));
    QVERIFY(!QImage(path("deck.png")).isNull());
}

void tst_DeckSimulator::failsWhenTheSnapshotCannotBeWritten()
{
    run("draw",
        {QStringLiteral("--snapshot"), path("missing/deck.png"), QStringLiteral("--after=0.5")});
    QCOMPARE(m_process.exitCode(), 1);
    QVERIFY(errors().contains(QLatin1String("cannot be written")));
}

void tst_DeckSimulator::endsByItself()
{
    run("draw", {QStringLiteral("--seconds=0.3")});
    QVERIFY2(m_process.exitCode() == 0, qPrintable(errors()));
    QVERIFY(output().contains(QLatin1String("Memory load")));
}

void tst_DeckSimulator::endsOnTermination()
{
    start("draw", {QStringLiteral("--seconds=600")});
    QTRY_VERIFY(QFile::exists(path("work/plugin-stderr.txt")));
    m_process.terminate();
    QVERIFY(m_process.waitForFinished());
    QCOMPARE(m_process.exitStatus(), QProcess::NormalExit);
    QCOMPARE(m_process.exitCode(), 0);
}

void tst_DeckSimulator::staysQuiet()
{
    run("draw", {QStringLiteral("--quiet"), QStringLiteral("--seconds=0.3")});
    QCOMPARE(m_process.exitCode(), 0);
    QCOMPARE(output(), QString());
}

void tst_DeckSimulator::reportsAPluginThatEndsAtOnce()
{
    run("refuse", {});
    QCOMPARE(m_process.exitCode(), 1);
    const QString text = errors();
    QVERIFY2(text.contains(QLatin1String("exit status 3")), qPrintable(text));
    QVERIFY(text.contains(path("work")));
}

void tst_DeckSimulator::refusesWrongUsage()
{
    run("draw", {QStringLiteral("--no-such-option")});
    QCOMPARE(m_process.exitCode(), 2);
    QVERIFY(errors().contains(QLatin1String("no-such-option")));
}

QTEST_GUILESS_MAIN(tst_DeckSimulator)
#include "tst_DeckSimulator.moc"
