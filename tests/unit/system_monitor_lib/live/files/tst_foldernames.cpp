#include "system_monitor_lib/live/files/FolderNames.h"
#include "tests/unit/system_monitor_lib/files.h"

#include <QTemporaryDir>
#include <QtTest>

class FolderNamesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void listsNamesOfAnyKind();
    void listsNothing();
};

void FolderNamesTest::listsNamesOfAnyKind()
{
    const QTemporaryDir folder;
    QVERIFY(writeFile(folder.filePath(QStringLiteral("file")), "content"));
    QVERIFY(writeFile(folder.filePath(QStringLiteral("folder/file")), "content"));
    QVERIFY(writeFile(folder.filePath(QStringLiteral(".hidden")), "content"));
    QVERIFY(writeFile(folder.filePath(QStringLiteral("文件")), "content"));
    QVERIFY(QFile::link(QStringLiteral("nowhere"), folder.filePath(QStringLiteral("a link"))));
    const QStringList names{QStringLiteral("a link"), QStringLiteral("file"),
                            QStringLiteral("folder"), QStringLiteral("文件")};
    QCOMPARE(folderNames(folder.path()), names);
    QCOMPARE(folderNames(folder.path() + QLatin1Char('/')), names);
}

void FolderNamesTest::listsNothing()
{
    const QTemporaryDir folder;
    QCOMPARE(folderNames(folder.path()), QStringList());
    QCOMPARE(folderNames(folder.filePath(QStringLiteral("missing"))), QStringList());
    const QString file = folder.filePath(QStringLiteral("file"));
    QVERIFY(writeFile(file, "content"));
    QCOMPARE(folderNames(file), QStringList());
}

QTEST_GUILESS_MAIN(FolderNamesTest)
#include "tst_foldernames.moc"
