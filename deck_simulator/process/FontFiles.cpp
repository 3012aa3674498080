#include "deck_simulator/process/FontFiles.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMap>
#include <QStandardPaths>

namespace deck {

FontFile fontFile(const QString &path)
{
    const QFileInfo file(path);
    return {file.completeBaseName(), file.absoluteFilePath()};
}

QVector<FontFile> findRobotoFiles(const QStringList &folders)
{
    const QStringList patterns{QStringLiteral("Roboto-*.ttf"), QStringLiteral("Roboto-*.otf")};
    QMap<QString, FontFile> byName;
    for (const QString &folder : folders) {
        QDirIterator files(folder, patterns, QDir::Files | QDir::Readable,
                           QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const FontFile file = fontFile(files.next());
            if (!byName.contains(file.name))
                byName.insert(file.name, file);
        }
    }
    return byName.values().toVector();
}

QStringList fontFolders()
{
    return QStandardPaths::standardLocations(QStandardPaths::FontsLocation);
}

QStringList fontSpecs(const QVector<FontFile> &files)
{
    QStringList specs;
    for (const FontFile &file : files) {
        const int id = QFontDatabase::addApplicationFont(file.path);
        const QStringList families = QFontDatabase::applicationFontFamilies(id);
        for (const QString &family : families) {
            const QStringList styles = QFontDatabase().styles(family);
            for (const QString &style : styles)
                specs.append(family + QLatin1Char('|') + style);
        }
    }
    specs.removeDuplicates();
    return specs;
}

} // namespace deck
