#pragma once

#include <QHash>
#include <QString>
#include <QTranslator>

namespace deck {

/// The settings panel's texts in Chinese: the same for a text wherever it is.
class PanelTranslator : public QTranslator
{
    Q_OBJECT

public:
    explicit PanelTranslator(QObject *parent = nullptr);

    /// Takes effect with installTranslator. Other languages than "zh_CN" stay English.
    void setLanguage(const QString &language);

    [[nodiscard]] bool isEmpty() const override { return false; }
    /// Null, which keeps the source text, for one that has no translation.
    [[nodiscard]] QString translate(const char *context, const char *sourceText,
                                    const char *disambiguation, int n) const override;
    /// The English texts that have a Chinese one.
    [[nodiscard]] static QStringList texts();

private:
    QHash<QString, QString> m_texts; // none for English
};

} // namespace deck
