#include "shell/codepages.h"

#include <QFile>
#include <QRegularExpression>
#include <QtTest>

/// The code goes, and comes back when it runs.
class tst_CodePages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void returnsCode();
    void keepsData();
};

namespace {

/// The pages of files in this process's memory, in KiB; -1 where the system does not tell.
int residentFiles()
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QRegularExpression files(QStringLiteral("RssFile:\\s+(\\d+) kB"));
    const QRegularExpressionMatch match = files.match(QString::fromLatin1(file.readAll()));
    return match.hasMatch() ? match.captured(1).toInt() : -1;
}

int written = 1;
QString text = QStringLiteral("text");

} // namespace

void tst_CodePages::returnsCode()
{
    const int before = residentFiles();
    if (before < 0)
        QSKIP("The system does not tell the memory of this process");
    returnCodePages();
    const int after = residentFiles();
    QVERIFY2(after < before - before / 8,
             qPrintable(QStringLiteral("%1 KiB before, %2 after").arg(before).arg(after)));
}

void tst_CodePages::keepsData()
{
    written = 2;
    text += QStringLiteral(" and more");
    returnCodePages();
    QCOMPARE(written, 2);
    QCOMPARE(text, QStringLiteral("text and more"));
    QCOMPARE(QRegularExpression(QStringLiteral("m.re")).match(text).capturedStart(), 9);
}

QTEST_APPLESS_MAIN(tst_CodePages)
#include "tst_codepages.moc"
