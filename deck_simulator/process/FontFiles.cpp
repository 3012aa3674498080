#include "deck_simulator/process/FontFiles.h"

#include <QDirIterator>
#include <QFileInfo>
#include <QFontDatabase>
#include <QMap>
#include <QStandardPaths>

#include <algorithm>

namespace deck {

FontFile fontFile(const QString &path)
{
    const QFileInfo file(path);
    return {file.completeBaseName(), file.absoluteFilePath()};
}

namespace {

// Sorted by name; each name once.
QVector<FontFile> findFiles(const QStringList &folders, const QStringList &patterns)
{
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

// Families with the letters of many languages come first.
int rankOf(const QString &name)
{
    const QStringList known{QStringLiteral("DejaVuSans"),     QStringLiteral("NotoSans"),
                            QStringLiteral("LiberationSans"), QStringLiteral("OpenSans"),
                            QStringLiteral("Ubuntu"),         QStringLiteral("segoeui"),
                            QStringLiteral("arial")};
    for (int index = 0; index < known.size(); ++index) {
        const QString &family = known.at(index);
        const bool same = name.compare(family, Qt::CaseInsensitive) == 0 ||
                          name.startsWith(family + QLatin1Char('-'), Qt::CaseInsensitive);
        if (same)
            return index;
    }
    return static_cast<int>(known.size());
}

} // namespace

QVector<FontFile> findRobotoFiles(const QStringList &folders)
{
    return findFiles(folders, {QStringLiteral("Roboto-*.ttf"), QStringLiteral("Roboto-*.otf")});
}

QVector<FontFile> findFontFiles(const QStringList &folders, int most)
{
    QVector<FontFile> files =
        findFiles(folders, {QStringLiteral("*.ttf"), QStringLiteral("*.otf")});
    std::stable_sort(files.begin(), files.end(), [](const FontFile &left, const FontFile &right) {
        return rankOf(left.name) < rankOf(right.name);
    });
    return files.mid(0, most);
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
