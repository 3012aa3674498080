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
    void findsOtherFiles();
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

void tst_FontFiles::findsOtherFiles()
{
    const QTemporaryDir folder;
    for (const char *name : {"a/Zapf.otf", "a/Able.ttf", "b/NotoSans-Bold.ttf", "b/DejaVuSans.ttf",
                             "b/NotoSansMath.ttf", "c/Able.ttf", "c/readme.txt"})
        makeFile(folder.path(), QString::fromLatin1(name));
    const auto names = [&folder](int most) {
        QStringList list;
        for (const FontFile &file : findFontFiles({folder.path()}, most))
            list.append(file.name);
        return list;
    };
    QCOMPARE(names(9), (QStringList{QStringLiteral("DejaVuSans"), QStringLiteral("NotoSans-Bold"),
                                    QStringLiteral("Able"), QStringLiteral("NotoSansMath"),
                                    QStringLiteral("Zapf")}));
    QCOMPARE(names(2).size(), 2);
    QVERIFY(findFontFiles({QStringLiteral("/no/such/folder")}, 9).isEmpty());
}

QTEST_GUILESS_MAIN(tst_FontFiles)
#include "tst_FontFiles.moc"
