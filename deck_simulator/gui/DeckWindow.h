#pragma once

#include "deck_simulator/deck/DeckModel.h"
#include "deck_simulator/deck/ProfileStore.h"
#include "deck_simulator/host/DeckRunner.h"
#include "deck_simulator/panel/InspectorClient.h"
#include "deck_simulator/process/PluginLog.h"

#include <QMainWindow>
#include <QTimer>

#include <chrono>

namespace deck {

class ActionPalette;
class DeckBar;
class DeckGrid;
class DeckStatusBar;
class Inspector;
class LogView;
class MessageBar;
class PluginBar;
class SettingsPanel;

/// The options with which the window is opened.
struct WindowSettings
{
    SessionSettings session;
    QString profileFile;
    bool keepsProfile = true; ///< Otherwise the profile is only read.
    QString language;         ///< In place of the profile's; empty: that.
    /// The port of the plugin's data server.
    quint16 dataServerPort = InspectorClient::usualPort;
};

/// The deck on the desktop: the grid in the middle, the list of actions and the settings of the
/// selected key beside it, the plugin's log below. It keeps its profile in a file, and runs the
/// plugin for as long as it is open.
class DeckWindow : public QMainWindow
{
    Q_OBJECT

public:
    explicit DeckWindow(const WindowSettings &settings, QWidget *parent = nullptr);

    /// Starts the plugin. To be called when the window is shown.
    void start();

    /// Writes a picture of the window to a file once the keys have been shown for some time, and
    /// closes it.
    /// When the plugin ends before, the window closes with a failure().
    void takeScreenshot(const QString &file, std::chrono::milliseconds after);
    /// Why there is no screenshot, possibly several lines; empty on success.
    [[nodiscard]] const QString &failure() const { return m_failure; }

    [[nodiscard]] DeckModel *model() { return &m_model; }
    [[nodiscard]] DeckRunner *runner() { return &m_runner; }
    [[nodiscard]] DeckGrid *grid() const { return m_grid; }
    [[nodiscard]] SettingsPanel *panel() const { return m_panel; }
    [[nodiscard]] PluginBar *pluginBar() const { return m_pluginBar; }
    [[nodiscard]] DeckBar *deckBar() const { return m_deckBar; }
    [[nodiscard]] DeckStatusBar *deckStatus() const { return m_status; }
    [[nodiscard]] MessageBar *messages() const { return m_messages; }
    [[nodiscard]] LogView *logView() const { return m_logView; }
    [[nodiscard]] ActionPalette *actionList() const { return m_actions; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    void loadProfile(const QString &language);
    void saveProfile();
    void addDocks();
    void arrangeDocks(const QSize &window);
    void addMenus();
    void connectGrid();
    void connectRunner();
    void onStateChanged();
    void onStalled(bool stalled);
    void showKey(const QString &context);
    void putOnCurrent(const QString &action);
    void focusDeck();
    void showNotice(const QString &text);
    void writeScreenshot(const QString &file);

    ProfileStore m_store;
    DeckModel m_model;
    DeckRunner m_runner;
    PluginLog m_log;
    StoredProfile m_profile;
    QTimer m_saveTimer;
    DeckGrid *m_grid;
    ActionPalette *m_actions;
    SettingsPanel *m_panel;
    Inspector *m_inspector;
    PluginBar *m_pluginBar;
    DeckBar *m_deckBar;
    LogView *m_logView;
    DeckStatusBar *m_status;
    MessageBar *m_messages;
    QString m_failure;
    bool m_closing = false;
    bool m_awaitsScreenshot = false;
    bool m_tellsOfRun = false; // the message does
};

} // namespace deck
