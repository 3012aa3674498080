#include "deck_simulator/gui/LogView.h"
#include "tests/support/Waits.h"

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QTemporaryDir>
#include <QToolButton>
#include <QtTest>

using namespace deck;

class tst_LogView : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void showsLinesAsTheyCome();
    void showsWhatWasThereBefore();
    void filters();
    void opensOnTheFile();
    void clears();
    void staysWhereTheUserReads();
    void followsWhateverItsSize();
    void staysWhileTextIsMarked();

private:
    [[nodiscard]] QStringList shown() const
    {
        return m_view->view()->toPlainText().split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    }

    std::unique_ptr<PluginLog> m_log;
    std::unique_ptr<LogView> m_view;
};

void tst_LogView::init()
{
    m_view.reset();
    m_log = std::make_unique<PluginLog>();
    m_view = std::make_unique<LogView>(m_log.get());
    m_view->resize(500, 200);
    m_view->show();
}

void tst_LogView::showsLinesAsTheyCome()
{
    m_log->tell(QStringLiteral("one"));
    m_log->tell(QStringLiteral("two <b>"));
    QCOMPARE(shown().size(), 2);
    QVERIFY(shown().at(1).endsWith(QLatin1String("two <b>")));
}

void tst_LogView::showsWhatWasThereBefore()
{
    m_log->tell(QStringLiteral("early"));
    const LogView another(m_log.get());
    QVERIFY(another.view()->toPlainText().endsWith(QLatin1String("early")));
}

void tst_LogView::filters()
{
    m_log->tell(QStringLiteral("an apple"));
    m_log->tell(QStringLiteral("a pear"));
    QTest::keyClicks(m_view->filterField(), QStringLiteral("APPLE"));
    QCOMPARE(shown().size(), 1);
    m_log->tell(QStringLiteral("another pear"));
    m_log->tell(QStringLiteral("another apple"));
    QCOMPARE(shown().size(), 2);
    m_view->filterField()->clear();
    QCOMPARE(shown().size(), 4);
    m_view->sourceTabs()->setCurrentIndex(1);
    QCOMPARE(shown().size(), 4); // lines of the simulator itself are always shown
}

void tst_LogView::opensOnTheFile()
{
    const QTemporaryDir folder;
    const auto append = [&folder](const char *name, const QByteArray &text) {
        QFile file(folder.filePath(QString::fromLatin1(name)));
        QVERIFY(file.open(QIODevice::Append));
        file.write(text);
    };
    m_log->follow(folder.path());
    append("log.txt", "[2026-01-02 03:04:05] of the file\n");
    append("plugin-stderr.txt", "of the stream\n");
    QTRY_COMPARE(m_log->lines().size(), 2);
    QCOMPARE(shown(), QStringList(QStringLiteral("[2026-01-02 03:04:05] of the file")));
    QTabBar *tabs = m_view->sourceTabs();
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(1).center());
    QCOMPARE(shown().size(), 1);
    const QRegularExpression line(QStringLiteral("^\\d\\d:\\d\\d:\\d\\d  of the stream$"));
    QVERIFY2(line.match(shown().at(0)).hasMatch(), qPrintable(shown().at(0)));
    QTest::mouseClick(tabs, Qt::LeftButton, {}, tabs->tabRect(2).center());
    QCOMPARE(shown().size(), 2);
}

void tst_LogView::clears()
{
    m_log->tell(QStringLiteral("gone"));
    QTest::mouseClick(m_view->clearButton(), Qt::LeftButton);
    QVERIFY(shown().isEmpty());
    m_log->tell(QStringLiteral("new"));
    QCOMPARE(shown().size(), 1);
}

void tst_LogView::staysWhereTheUserReads()
{
    for (int line = 0; line < 200; ++line)
        m_log->tell(QString::number(line));
    QScrollBar *bar = m_view->view()->verticalScrollBar();
    QCOMPARE(bar->value(), bar->maximum());
    m_log->tell(QStringLiteral("followed"));
    QCOMPARE(bar->value(), bar->maximum());
    QTest::keyClick(m_view->view(), Qt::Key_PageUp);
    const int read = bar->value();
    QVERIFY(read < bar->maximum());
    m_log->tell(QStringLiteral("later"));
    m_view->resize(500, 150);
    QCoreApplication::processEvents();
    QCOMPARE(bar->value(), read);
    QTest::keyClick(m_view->view(), Qt::Key_End);
    m_log->tell(QStringLiteral("followed again"));
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_LogView::followsWhateverItsSize()
{
    const QScrollBar *bar = m_view->view()->verticalScrollBar();
    for (int line = 0; line < 200; ++line)
        m_log->tell(QString::number(line));
    for (const int height : {120, 400, 90}) {
        m_view->resize(500, height);
        QCoreApplication::processEvents();
        QCOMPARE(bar->value(), bar->maximum());
        m_log->tell(QStringLiteral("another"));
        QCOMPARE(bar->value(), bar->maximum());
    }
    // The scroll bar at the bottom takes the place of a line.
    m_log->tell(QString(300, QLatin1Char('x')));
    QCoreApplication::processEvents();
    QVERIFY(m_view->view()->horizontalScrollBar()->isVisible());
    QCOMPARE(bar->value(), bar->maximum());
    QCOMPARE(m_view->view()->horizontalScrollBar()->value(), 0);
    m_view->hide();
    m_log->tell(QStringLiteral("unseen"));
    m_view->resize(500, 150);
    m_view->show();
    QCoreApplication::processEvents();
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_LogView::staysWhileTextIsMarked()
{
    for (int line = 0; line < 200; ++line)
        m_log->tell(QString::number(line));
    const QScrollBar *bar = m_view->view()->verticalScrollBar();
    const int before = bar->value();
    const QWidget *viewport = m_view->view()->viewport();
    QTest::mouseDClick(m_view->view()->viewport(), Qt::LeftButton, {}, QPoint(10, 10));
    QVERIFY(m_view->view()->textCursor().hasSelection());
    m_log->tell(QStringLiteral("later"));
    QCOMPARE(bar->value(), before);
    QTest::mouseClick(m_view->view()->viewport(), Qt::LeftButton, {},
                      QPoint(viewport->width() - 5, 5));
    m_log->tell(QStringLiteral("followed"));
    QCOMPARE(bar->value(), bar->maximum());
}

QTEST_MAIN(tst_LogView)
#include "tst_LogView.moc"
