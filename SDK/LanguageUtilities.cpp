#include "SDK/LanguageUtilities.h"

#include <QDebug>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

const QStringList &knownCodes()
{
    static const QStringList codes{
        QStringLiteral("ar"),    QStringLiteral("de"), QStringLiteral("en"),
        QStringLiteral("es"),    QStringLiteral("fr"), QStringLiteral("it"),
        QStringLiteral("ja"),    QStringLiteral("ko"), QStringLiteral("pl"),
        QStringLiteral("pt"),    QStringLiteral("ru"), QStringLiteral("zh_CN"),
        QStringLiteral("zh_HK"),
    };
    return codes;
}

QHash<QString, QString> textsOf(const QJsonObject &table)
{
    QHash<QString, QString> texts;
    for (auto member = table.begin(); member != table.end(); ++member)
        texts.insert(member.key(), member.value().toString());
    return texts;
}

} // namespace

LanguageUtilities *LanguageUtilities::instance(QObject *parent)
{
    static auto *const utilities = new LanguageUtilities(parent);
    return utilities;
}

LanguageUtilities::LanguageUtilities(QObject *parent)
    : QObject(parent)
{
}

void LanguageUtilities::LoadLanguages()
{
    // Compatibility: codes-without-tables
    m_languages += knownCodes();
    for (const QString &code : qAsConst(m_languages)) {
        QFile file(QStringLiteral(":/JsonLanguage/%1.json").arg(code));
        if (!file.open(QIODevice::ReadOnly)) {
            qCritical() << QStringLiteral("Unable to open file %1, error info: %2")
                               .arg(file.fileName(), file.errorString());
            continue;
        }
        m_translations.insert(code, textsOf(QJsonDocument::fromJson(file.readAll()).object()));
    }
}

void LanguageUtilities::SetLanguage(const QString &code)
{
    if (m_languages.contains(code))
        m_currentLanguage = code;
}

QString LanguageUtilities::Translate(const QString &key, const QString &fallback,
                                     const QString &language) const
{
    const QString text =
        m_translations.value(language.isEmpty() ? m_currentLanguage : language).value(key);
    return text.isEmpty() ? fallback : text;
}
