#include "deck_simulator/process/FontFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

using namespace deck;

class tst_FontFiles : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsRobotoFilesBelowFolders();
};

namespace {

void makeFile(const QDir &folder, const QString &path)
{
    QVERIFY(folder.mkpath(QFileInfo(path).path()));
    QFile file(folder.filePath(path));
    QVERIFY(file.open(QIODevice::WriteOnly));
}

} // namespace

void tst_FontFiles::findsRobotoFilesBelowFolders()
{
    const QTemporaryDir first;
    const QTemporaryDir second;
    makeFile(first.path(), QStringLiteral("deep/er/Roboto-Regular.ttf"));
    makeFile(first.path(), QStringLiteral("Roboto-Bold.otf"));
    makeFile(first.path(), QStringLiteral("RobotoMono-Bold.ttf"));
    makeFile(first.path(), QStringLiteral("Roboto-Readme.txt"));
    makeFile(second.path(), QStringLiteral("Roboto-Regular.ttf"));
    const QVector<FontFile> fonts =
        findRobotoFiles({first.path(), second.path(), QStringLiteral("/no/such/folder")});
    QCOMPARE(fonts.size(), 2);
    QCOMPARE(fonts.at(0).name, QStringLiteral("Roboto-Bold"));
    QCOMPARE(fonts.at(1).name, QStringLiteral("Roboto-Regular"));
    QCOMPARE(fonts.at(1).path, first.filePath(QStringLiteral("deep/er/Roboto-Regular.ttf")));
}

QTEST_GUILESS_MAIN(tst_FontFiles)
#include "tst_FontFiles.moc"
