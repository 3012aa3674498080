#pragma once

#include "deck_simulator/process/PluginLog.h"

#include <QWidget>

class QLineEdit;
class QPlainTextEdit;
class QTabBar;
class QToolButton;

namespace deck {

/// The plugin's log, its debug stream, or both, with a filter. It follows the end unless the user
/// has scrolled away or is selecting text.
class LogView : public QWidget
{
    Q_OBJECT

public:
    /// \a log is not owned and outlives this object.
    explicit LogView(PluginLog *log, QWidget *parent = nullptr);

    [[nodiscard]] QLineEdit *filterField() const { return m_text; }
    [[nodiscard]] QTabBar *sourceTabs() const { return m_source; }
    [[nodiscard]] QPlainTextEdit *view() const { return m_view; }
    [[nodiscard]] QToolButton *clearButton() const { return m_clear; }

protected:
    void changeEvent(QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void showFont();
    [[nodiscard]] LogFilter filter() const;
    void showAll();
    void showLine(const LogLine &line);
    void onScrolled();
    void follow();
    [[nodiscard]] bool isMarking() const;

    PluginLog *m_log;
    QTabBar *m_source;
    QLineEdit *m_text;
    QToolButton *m_clear;
    QPlainTextEdit *m_view;
    bool m_follows = true;
};

} // namespace deck
