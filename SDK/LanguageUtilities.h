#pragma once

#include <QHash>
#include <QObject>
#include <QString>
#include <QStringList>

/// Display texts of English label keys in the host's language, from tables compiled into the
/// program. Used on the main thread; filled once at start-up.
class LanguageUtilities : public QObject
{
    Q_OBJECT

public:
    /// The process-wide object, created on the first call and never deleted.
    static LanguageUtilities *instance(QObject *parent = nullptr);

    explicit LanguageUtilities(QObject *parent = nullptr);

    /// Appends the 13 known codes and loads ":/JsonLanguage/CODE.json" for each code. A code
    /// without a file causes a critical message and has no table.
    void LoadLanguages();

    /// Makes \a code current if it is one of the loaded codes; otherwise nothing changes.
    void SetLanguage(const QString &code);

    /// The text of \a key in \a language (in the current language when empty), or \a fallback when
    /// the language has no table or the table has no text for the key.
    QString Translate(const QString &key, const QString &fallback,
                      const QString &language = QString()) const;

    const QString &currentLanguage() const { return m_currentLanguage; }
    const QStringList &languages() const { return m_languages; }

private:
    QString m_currentLanguage = QStringLiteral("en");
    QStringList m_languages;
    QHash<QString, QHash<QString, QString>> m_translations;
};
