#pragma once

#include "deck_simulator/deck/DeckModel.h"
#include "deck_simulator/panel/SettingsLists.h"

#include <QWidget>

class QLabel;
class QScrollArea;
class QVBoxLayout;

namespace deck {

class SettingsForm;

/// The settings of the selected key: its name, its current reading, and the form.
class SettingsPanel : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsPanel(QWidget *parent = nullptr);

    /// Of the action's name and of new titles; the other texts are in the application's.
    /// \a keysTranslated: the plugin's own titles are in it as well.
    void setLanguage(const QString &language, bool keysTranslated);
    /// Null for an empty place.
    void setEntry(const DeckEntry *entry);
    /// The key that is shown; empty for none.
    [[nodiscard]] const QString &context() const { return m_context; }
    [[nodiscard]] SettingsForm *form() const { return m_form; }
    /// The key's current reading, in lines.
    void setPreview(const QString &text);
    [[nodiscard]] QString preview() const;
    [[nodiscard]] QSize sizeHint() const override;

Q_SIGNALS:
    void edited(const QString &context, const EntrySettings &settings);
    /// The user has finished with Enter or Escape.
    void left();

protected:
    void changeEvent(QEvent *event) override;

private:
    void addForm();
    void retranslate();
    void showHead();
    void showFont();
    void showIcon();

    QLabel *m_icon;
    QLabel *m_caption;
    QLabel *m_place;
    QLabel *m_preview;
    QLabel *m_empty;
    QScrollArea *m_scroll;
    QVBoxLayout *m_content = nullptr;
    SettingsForm *m_form = nullptr;
    QString m_language;
    bool m_keysTranslated = false;
    QString m_context;
    QString m_action;
    DeckPlace m_where;
};

} // namespace deck
