#include "tests/support/TestFonts.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QStandardPaths>

namespace testfonts {

void hideMachineFonts()
{
    qputenv("FONTCONFIG_FILE", FONT_FOLDER "/fonts.conf");
    // For systems without fontconfig: a folder that has no fonts.
    qputenv("QT_QPA_FONTDIR", FONT_FOLDER);
}

QString find(const QString &fileName)
{
    const QStringList folders = QStandardPaths::standardLocations(QStandardPaths::FontsLocation);
    for (const QString &folder : folders) {
        QDirIterator file(folder, {fileName}, QDir::Files, QDirIterator::Subdirectories);
        if (file.hasNext())
            return file.next();
    }
    return {};
}

bool registerFile(const QString &fileName)
{
    const QString path = find(fileName);
    return !path.isEmpty() && QFontDatabase::addApplicationFont(path) >= 0;
}

} // namespace testfonts
