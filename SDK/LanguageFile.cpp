#include "SDK/LanguageFile.h"

#include "json/ParseJson.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace {

/// Far above the size of any real table; a longer file is not one.
constexpr qint64 longestFile = 16LL * 1024 * 1024;

} // namespace

LanguageFile::LanguageFile(const QString &languageCode)
{
    // Compatibility: language-file
    QFile file(QCoreApplication::applicationDirPath() + languageCode + QStringLiteral(".json"));
    // The code comes from outside: opening a pipe could block for ever.
    if (!QFileInfo(file).isFile() || !file.open(QIODevice::ReadOnly))
        return;
    m_content =
        parseJson(file.read(longestFile)).object().value(QLatin1String("Localization")).toObject();
}

const LanguageFile &LanguageFile::create(const QString &languageCode)
{
    static const LanguageFile file(languageCode);
    return file;
}
