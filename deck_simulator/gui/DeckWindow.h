#pragma once

#include "deck_simulator/deck/DeckModel.h"
#include "deck_simulator/deck/DeckShelf.h"
#include "deck_simulator/deck/ProfileStore.h"
#include "deck_simulator/gui/PanelTranslator.h"
#include "deck_simulator/host/DeckRunner.h"
#include "deck_simulator/panel/InspectorClient.h"
#include "deck_simulator/process/PluginLog.h"

#include <QMainWindow>
#include <QTimer>

#include <chrono>
#include <memory>
#include <optional>

namespace deck {

class ActionPalette;
class DeckBar;
class DeckGrid;
class DeckMenu;
class DeckStatusBar;
class EditActions;
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
    bool keepsProfile = true; ///< Otherwise the profile and the decks beside it are only read.
    QString deckName;         ///< Empty: the default deck.
    /// What it begins with where there is none; the usual keys unless given.
    std::optional<StoredProfile> freshDeck;
    QString language; ///< In place of the profile's; empty: that.
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

    /// Opens a deck that is kept by name; the one before is saved. The plugin goes on, unless the
    /// decks differ in what it is started with.
    void openDeck(const QString &name);
    /// Keeps the deck under a new name and goes on with that.
    void saveDeckAs(const QString &name);
    [[nodiscard]] const QString &deckName() const { return m_deckName; }

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
    [[nodiscard]] DeckMenu *deckMenu() const { return m_deckMenu; }
    [[nodiscard]] DeckStatusBar *deckStatus() const { return m_status; }
    [[nodiscard]] MessageBar *messages() const { return m_messages; }
    [[nodiscard]] LogView *logView() const { return m_logView; }
    [[nodiscard]] EditActions *edits() const { return m_edits; }
    [[nodiscard]] ActionPalette *actionList() const { return m_actions; }

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    [[nodiscard]] std::unique_ptr<ProfileStore> makeStore(const QString &name) const;
    void loadProfile(const StoredProfile &fresh, const QString &language);
    void rememberDeck();
    void restoreWindow();
    void showDeck();
    bool saveProfile();
    void askForName();
    void goOnWith(std::unique_ptr<ProfileStore> store, const QString &name);
    void applyLanguage();
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

    DeckShelf m_shelf;
    ProfileStore::Access m_access;
    QString m_deckName;
    std::unique_ptr<ProfileStore> m_store;
    DeckModel m_model;
    DeckRunner m_runner;
    PluginLog m_log;
    PanelTranslator m_translator;
    StoredProfile m_profile;
    QTimer m_saveTimer;
    DeckGrid *m_grid;
    EditActions *m_edits;
    ActionPalette *m_actions;
    SettingsPanel *m_panel;
    Inspector *m_inspector;
    PluginBar *m_pluginBar;
    DeckBar *m_deckBar;
    DeckMenu *m_deckMenu;
    LogView *m_logView;
    DeckStatusBar *m_status;
    MessageBar *m_messages;
    QString m_failure;
    bool m_closing = false;
    bool m_awaitsScreenshot = false;
    bool m_tellsOfRun = false; // the message does
};

} // namespace deck
