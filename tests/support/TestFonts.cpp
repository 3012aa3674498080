#include "tests/support/TestFonts.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QHash>
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

QString missing(const QStringList &fileNames)
{
    static const QHash<QString, QString> packages{
        {QStringLiteral("Roboto-Bold.ttf"), QStringLiteral("fonts-roboto-unhinted")},
        {QStringLiteral("Roboto-Medium.ttf"), QStringLiteral("fonts-roboto-unhinted")},
        {QStringLiteral("DejaVuSans.ttf"), QStringLiteral("fonts-dejavu-core")},
        {QStringLiteral("wqy-microhei.ttc"), QStringLiteral("fonts-wqy-microhei")},
    };
    static QHash<QString, bool> registered;
    QStringList absent;
    for (const QString &fileName : fileNames) {
        if (!registered.contains(fileName))
            registered.insert(fileName, registerFile(fileName));
        if (!registered.value(fileName))
            absent.append(
                QStringLiteral("%1 of %2 is missing").arg(fileName, packages.value(fileName)));
    }
    return absent.join(QStringLiteral(", "));
}

bool areRequired()
{
    return qEnvironmentVariable("CI") == QLatin1String("true");
}

} // namespace testfonts
