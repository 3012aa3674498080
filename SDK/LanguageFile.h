#pragma once

#include <QJsonObject>
#include <QString>

/// The "Localization" object of the file DIRECTORYCODE.json, where DIRECTORY is the program's own
/// directory. There is no separator between the two, so the file lies beside that directory. Empty
/// when there is no such file or no such member.
class LanguageFile
{
public:
    explicit LanguageFile(const QString &languageCode);

    /// Creates the process-wide object on the first call; later calls change nothing.
    static const LanguageFile &create(const QString &languageCode);

    const QJsonObject &content() const { return m_content; }

private:
    QJsonObject m_content;
};
