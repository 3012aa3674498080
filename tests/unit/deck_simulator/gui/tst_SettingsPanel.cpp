#include "deck_simulator/gui/ColorField.h"
#include "deck_simulator/gui/PanelTranslator.h"
#include "deck_simulator/gui/SensorPicker.h"
#include "deck_simulator/gui/SettingsForm.h"
#include "deck_simulator/gui/SettingsPanel.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/Waits.h"

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSlider>
#include <QSpinBox>
#include <QToolButton>
#include <QTreeView>
#include <QtTest>

using namespace deck;

// The panel with lists like those of the plugin, used like a user does.
class tst_SettingsPanel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void saysWhenThereIsNothing();
    void showsWhatApplies_data();
    void showsWhatApplies();
    void reportsNothingByItself();
    void editsTheTitle();
    void editsTheLook();
    void editsTheColour();
    void picksAColour();
    void takesAColourBack();
    void choosesFonts();
    void tellsOfAMissingFont();
    void keepsAFontThatIsNotInTheList();
    void choosesDrives();
    void switchesBetweenDiskModes();
    void choosesFansAndDisksAndDevices();
    void choosesUnits();
    void searchesSensors();
    void renewsReadingsInPlace();
    void saysWhenAListIsEmpty();
    void leavesFieldsToTheWheelOnlyWhenTheyAreUsed();
    void isLeftWithEnterAndEscape();
    void forgetsListsOfAnotherKey();
    void showsPreviewsAsPlainText();
    void tellsTheSizeOfThePicture();
    void choosesAStyle();
    void showsOnlyWhatAGaugeUses();
    void tellsTheShortTitle();
    void tellsTheShortTitleInChinese();
    void fitsWithEverythingOpen_data();
    void fitsWithEverythingOpen();
    void cutsNoTextOff_data();
    void cutsNoTextOff();

private:
    // Of a panel that scrolls only upwards and downwards.
    [[nodiscard]] int usualWidth() const
    {
        return 32 * m_panel->fontMetrics().horizontalAdvance(QLatin1Char('0'));
    }
    void show(const QString &action, const EntrySettings &settings = {});
    template <typename Control>
    [[nodiscard]] Control *control(const char *name) const
    {
        return m_panel->findChild<Control *>(QString::fromLatin1(name));
    }
    [[nodiscard]] EntrySettings last() const
    {
        return m_edits->constLast().at(1).value<EntrySettings>();
    }
    void choose(const char *combo, const QString &label);

    std::unique_ptr<SettingsPanel> m_panel;
    std::unique_ptr<QSignalSpy> m_edits;
};

Q_DECLARE_METATYPE(EntrySettings)

namespace {

SettingsLists someLists()
{
    SettingsLists lists;
    lists.fonts = {{QStringLiteral("Roboto|Bold"), QStringLiteral("Roboto Bold"), {}, {}},
                   {QStringLiteral("Roboto|Light"), QStringLiteral("Roboto Light"), {}, {}}};
    lists.drives = {{QStringLiteral("0"), QStringLiteral("/"), {}, {}},
                    {QStringLiteral("1"), QStringLiteral("/home"), {}, {}}};
    lists.fans = {
        {QStringLiteral("CPU Fan"), QStringLiteral("CPU Fan"), {}, QStringLiteral("9RPM")},
        {QStringLiteral("CPU Fan 2"), QStringLiteral("CPU Fan 2"), {}, {}}};
    lists.disks = {{QStringLiteral("Disk A"), QStringLiteral("Disk A"), {}, {}},
                   {QStringLiteral("Disk B"), QStringLiteral("Disk B"), {}, {}}};
    lists.audioDevices = {{QStringLiteral("Speakers"), QStringLiteral("Speakers"), {}, {}},
                          {QStringLiteral("耳机"), QStringLiteral("耳机"), {}, {}}};
    lists.sensors = {{QStringLiteral("Core 0"), QStringLiteral("Core 0"), QStringLiteral("CPU"),
                      QStringLiteral("45°C")},
                     {QStringLiteral("Core 1"), QStringLiteral("Core 1"), QStringLiteral("CPU"),
                      QStringLiteral("46°C")},
                     {QStringLiteral("Load"), QStringLiteral("Load"), QStringLiteral("GPU"),
                      QStringLiteral("3%")}};
    lists.pump = QStringLiteral("1850RPM");
    return lists;
}

} // namespace

void tst_SettingsPanel::init()
{
    qRegisterMetaType<EntrySettings>("EntrySettings");
    m_panel = std::make_unique<SettingsPanel>();
    m_panel->resize(420, 700);
    m_panel->show();
    m_edits = std::make_unique<QSignalSpy>(m_panel.get(), &SettingsPanel::edited);
}

void tst_SettingsPanel::show(const QString &action, const EntrySettings &settings)
{
    const DeckEntry entry{QStringLiteral("context"), action, {2, 1}, settings};
    m_panel->setEntry(&entry);
    m_panel->form()->setLists(someLists());
    QCoreApplication::processEvents(); // what has just been shown gets its place
    QCOMPARE(m_edits->count(), 0);
}

// Like a user: opens the list and activates an entry.
void tst_SettingsPanel::choose(const char *name, const QString &label)
{
    auto *combo = control<QComboBox>(name);
    const int index = combo->findText(label);
    QVERIFY2(index >= 0, qPrintable(label));
    combo->setCurrentIndex(index);
    Q_EMIT combo->activated(index);
}

void tst_SettingsPanel::saysWhenThereIsNothing()
{
    const auto shownTexts = [this] {
        QString texts;
        const QList<QLabel *> labels = m_panel->findChildren<QLabel *>();
        for (const QLabel *label : labels) {
            if (label->isVisible())
                texts += label->text();
        }
        return texts;
    };
    QVERIFY(shownTexts().contains(QLatin1String("Nothing is on this key")));
    QVERIFY(!m_panel->form()->isVisible());
    show(keyuuid::cpu);
    QVERIFY(shownTexts().contains(QLatin1String("CPU usage")));
    QVERIFY(shownTexts().contains(QLatin1String("Column 3, row 2")));
    QVERIFY(m_panel->form()->isVisible());
    m_panel->setEntry(nullptr);
    QVERIFY(m_panel->context().isEmpty());
    QVERIFY(!m_panel->form()->isVisible());
}

void tst_SettingsPanel::showsWhatApplies_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QStringList>("shown");
    const auto row = [](const QString &action, const char *shown) {
        QTest::newRow(qPrintable(action))
            << action << QString::fromLatin1(shown).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    };
    row(keyuuid::cpu, "");
    row(keyuuid::cpuTemperature, "temperatureType");
    row(keyuuid::netWork, "titleLines");
    row(keyuuid::physicalDisk, "diskMode drive showVolumeName");
    row(keyuuid::diskTemperature, "temperatureType physicalDisk");
    row(keyuuid::volume, "audioDevice");
    row(keyuuid::cpuFan, "fan");
    row(keyuuid::pumpSpeed, "pump");
    row(keyuuid::allData, "sensor");
}

void tst_SettingsPanel::showsWhatApplies()
{
    QFETCH(const QString, action);
    QFETCH(const QStringList, shown);
    show(action);
    for (const char *name :
         {"temperatureType", "titleLines", "diskMode", "drive", "switchFrequency", "showVolumeName",
          "physicalDisk", "audioDevice", "fan", "pump", "sensor"}) {
        const auto *field = control<QWidget>(name);
        QVERIFY2(field != nullptr, name);
        QVERIFY2(field->isVisibleTo(m_panel.get()) == shown.contains(QString::fromLatin1(name)),
                 name);
    }
    for (const char *name : {"title", "showTitle", "font", "fontSize", "color", "opacity"})
        QVERIFY2(control<QWidget>(name)->isVisibleTo(m_panel.get()), name);
}

void tst_SettingsPanel::reportsNothingByItself()
{
    EntrySettings settings;
    settings.text = QStringLiteral("x");
    settings.fontSize = 50;
    settings.opacity = 0.5;
    settings.diskMode = QStringLiteral("Disk_Loop");
    show(keyuuid::physicalDisk, settings);
    m_panel->form()->setSettings({});
    m_panel->form()->setLists({});
    m_panel->form()->setSensors(someLists().sensors);
    QCOMPARE(m_edits->count(), 0);
}

void tst_SettingsPanel::editsTheTitle()
{
    show(keyuuid::cpu);
    m_panel->form()->focusFirst();
    QTest::keyClicks(control<QLineEdit>("title"), QStringLiteral("Hi"));
    QCOMPARE(m_edits->count(), 2);
    QCOMPARE(last().text, QStringLiteral("Hi"));
    QCOMPARE(m_edits->constLast().at(0).toString(), QStringLiteral("context"));
    QTest::mouseClick(control<QCheckBox>("showTitle"), Qt::LeftButton, {}, QPoint(8, 8));
    QCOMPARE(m_edits->count(), 3);
    QVERIFY(!last().showTitle);
}

void tst_SettingsPanel::editsTheLook()
{
    show(keyuuid::cpu);
    auto *size = control<QSpinBox>("fontSize");
    size->selectAll();
    QTest::keyClicks(size, QStringLiteral("120"));
    QCOMPARE(m_edits->count(), 0); // half typed
    QTest::keyClick(size, Qt::Key_Return);
    QCOMPARE(m_edits->count(), 1);
    QCOMPARE(last().fontSize, 120);
    QTest::keyClick(size, Qt::Key_Up);
    QCOMPARE(last().fontSize, 121);
    auto *opacity = control<QSlider>("opacity");
    QTest::keyClick(opacity, Qt::Key_End);
    QCOMPARE(last().opacity, 1.0);
    QTest::keyClick(opacity, Qt::Key_Left);
    QCOMPARE(last().opacity, 0.99);
    QTest::mouseClick(control<QCheckBox>("fillsKey"), Qt::LeftButton, {}, QPoint(8, 8));
    QVERIFY(last().fillsKey);
}

void tst_SettingsPanel::editsTheColour()
{
    show(keyuuid::cpu);
    QLineEdit *text = control<ColorField>("color")->textField();
    text->selectAll();
    QTest::keyClicks(text, QStringLiteral("red"));
    QCOMPARE(last().color, QStringLiteral("red"));
    QTest::keyClicks(text, QStringLiteral("dish"));
    QCOMPARE(last().color, QStringLiteral("reddish")); // so that the plugin can be tested with it
}

void tst_SettingsPanel::picksAColour()
{
    show(keyuuid::cpu);
    auto *field = control<ColorField>("color");
    QTest::mouseClick(field->button(), Qt::LeftButton);
    auto *picker = field->findChild<QColorDialog *>();
    QVERIFY(picker != nullptr);
    picker->setCurrentColor(QColor(0x12, 0x34, 0x56));
    QCOMPARE(last().color, QStringLiteral("#123456")); // while it is open
    picker->accept();
    QCOMPARE(field->color(), QStringLiteral("#123456"));
}

void tst_SettingsPanel::takesAColourBack()
{
    show(keyuuid::cpu);
    auto *field = control<ColorField>("color");
    QTest::mouseClick(field->button(), Qt::LeftButton);
    auto *picker = field->findChild<QColorDialog *>();
    picker->setCurrentColor(Qt::red);
    picker->reject();
    QCOMPARE(last().color, QStringLiteral("#ffffff"));
}

void tst_SettingsPanel::tellsOfAMissingFont()
{
    const DeckEntry shown{QStringLiteral("context"), keyuuid::cpu, {0, 0}, {}};
    m_panel->setEntry(&shown);
    m_panel->show();
    const auto *hint = m_panel->findChild<QLabel *>(QStringLiteral("fontHint"));
    QVERIFY(!hint->isVisible()); // nothing is known of the plugin's fonts
    m_panel->form()->setLists(someLists());
    QVERIFY(!hint->isVisible());
    SettingsLists lists = someLists();
    lists.fonts = {
        {QStringLiteral("DejaVu Sans|Bold"), QStringLiteral("DejaVu Sans Bold"), {}, {}}};
    m_panel->form()->setLists(lists);
    QVERIFY(hint->isVisible());
    QVERIFY2(hint->text().contains(QLatin1String("no \"Roboto Bold\"")), qPrintable(hint->text()));
    auto *font = m_panel->findChild<QComboBox *>(QStringLiteral("font"));
    font->setCurrentIndex(font->findData(QStringLiteral("DejaVu Sans|Bold")));
    Q_EMIT font->activated(font->currentIndex());
    QCOMPARE(m_panel->form()->settings().fontFamily, QStringLiteral("DejaVu Sans|Bold"));
    QVERIFY(!hint->isVisible());
}

void tst_SettingsPanel::choosesFonts()
{
    show(keyuuid::cpu);
    choose("font", QStringLiteral("Roboto Light"));
    QCOMPARE(last().fontFamily, QStringLiteral("Roboto|Light"));
}

void tst_SettingsPanel::keepsAFontThatIsNotInTheList()
{
    EntrySettings settings;
    settings.fontFamily = QStringLiteral("Lost|Regular");
    show(keyuuid::cpu, settings);
    QCOMPARE(control<QComboBox>("font")->currentText(), QStringLiteral("Lost|Regular"));
    m_panel->form()->focusFirst();
    QTest::keyClicks(control<QLineEdit>("title"), QStringLiteral("x"));
    QCOMPARE(last().fontFamily, QStringLiteral("Lost|Regular"));
}

void tst_SettingsPanel::choosesDrives()
{
    show(keyuuid::physicalDisk);
    choose("drive", QStringLiteral("/home"));
    QCOMPARE(last().volumeNameItem, QStringLiteral("1"));
    QTest::mouseClick(control<QCheckBox>("showVolumeName"), Qt::LeftButton, {}, QPoint(8, 8));
    QVERIFY(!last().showVolumeName);
}

void tst_SettingsPanel::switchesBetweenDiskModes()
{
    show(keyuuid::physicalDisk);
    choose("diskMode", QStringLiteral("Each drive in turn"));
    QCOMPARE(last().diskMode, QStringLiteral("Disk_Loop"));
    QVERIFY(control<QWidget>("switchFrequency")->isVisibleTo(m_panel.get()));
    QVERIFY(!control<QWidget>("drive")->isVisibleTo(m_panel.get()));
    control<QSpinBox>("switchFrequency")->setValue(9);
    QCOMPARE(last().switchFrequency, 9);
    choose("diskMode", QStringLiteral("All drives together"));
    QCOMPARE(last().diskMode, QStringLiteral("Total_Disks"));
    QVERIFY(!control<QWidget>("switchFrequency")->isVisibleTo(m_panel.get()));
}

void tst_SettingsPanel::choosesFansAndDisksAndDevices()
{
    show(keyuuid::cpuFan);
    QCOMPARE(control<QComboBox>("fan")->itemText(0), QStringLiteral("CPU Fan: 9RPM"));
    choose("fan", QStringLiteral("CPU Fan 2"));
    QCOMPARE(last().selectCpuFan, QStringLiteral("CPU Fan 2"));
    m_edits->clear();
    show(keyuuid::diskTemperature);
    choose("physicalDisk", QStringLiteral("Disk B"));
    QCOMPARE(last().selectPhysicalDisk, QStringLiteral("Disk B"));
    m_edits->clear();
    show(keyuuid::volume);
    choose("audioDevice", QStringLiteral("耳机"));
    QCOMPARE(last().audioDevice, QStringLiteral("耳机"));
    m_edits->clear();
    show(keyuuid::pumpSpeed);
    QCOMPARE(control<QLabel>("pump")->text(), QStringLiteral("1850RPM"));
}

void tst_SettingsPanel::choosesUnits()
{
    show(keyuuid::cpuTemperature);
    choose("temperatureType", QStringLiteral("Fahrenheit"));
    QCOMPARE(last().temperatureType, QStringLiteral("华氏度"));
    m_edits->clear();
    show(keyuuid::netWork);
    choose("titleLines", QStringLiteral("Two lines"));
    QCOMPARE(last().titleLines, QStringLiteral("双行显示"));
}

void tst_SettingsPanel::searchesSensors()
{
    show(keyuuid::allData);
    auto *picker = control<SensorPicker>("sensor");
    QAbstractItemModel &model = *picker->view()->model();
    QCOMPARE(model.rowCount(), 2);
    QTest::keyClicks(picker->searchField(), QStringLiteral("core 1"));
    QCOMPARE(model.rowCount(), 1);
    const QModelIndex found = model.index(0, 0, model.index(0, 0));
    QCOMPARE(found.data().toString(), QStringLiteral("Core 1"));
    QCOMPARE(found.siblingAtColumn(1).data().toString(), QStringLiteral("46°C"));
    QTest::mouseClick(picker->view()->viewport(), Qt::LeftButton, {},
                      picker->view()->visualRect(found).center());
    QCOMPARE(last().selectValue, QStringLiteral("Core 1"));
    QCOMPARE(picker->searchField()->text(), QString());
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(picker->view()->currentIndex().data().toString(), QStringLiteral("Core 1"));
    QTest::keyClicks(picker->searchField(), QStringLiteral("load"));
    QTest::keyClick(picker->searchField(), Qt::Key_Return);
    QCOMPARE(last().selectValue, QStringLiteral("Load"));
    // A click on a group chooses nothing.
    const auto edits = m_edits->count();
    QTest::mouseClick(picker->view()->viewport(), Qt::LeftButton, {},
                      picker->view()->visualRect(model.index(0, 0)).center());
    QCOMPARE(m_edits->count(), edits);
}

void tst_SettingsPanel::renewsReadingsInPlace()
{
    EntrySettings settings;
    settings.selectValue = QStringLiteral("Load");
    show(keyuuid::allData, settings);
    auto *picker = control<SensorPicker>("sensor");
    QCOMPARE(picker->view()->currentIndex().data().toString(), QStringLiteral("Load"));
    QVector<ListEntry> sensors = someLists().sensors;
    sensors[2].reading = QStringLiteral("77%");
    m_panel->form()->setSensors(sensors);
    const QModelIndex current = picker->view()->currentIndex();
    QCOMPARE(current.siblingAtColumn(1).data().toString(), QStringLiteral("77%"));
    m_panel->form()->setSensors({});
    QCOMPARE(picker->view()->model()->rowCount(), 0);
}

void tst_SettingsPanel::saysWhenAListIsEmpty()
{
    show(keyuuid::cpuFan);
    m_panel->form()->setLists({});
    for (const char *name : {"fan", "drive", "physicalDisk", "audioDevice"})
        QCOMPARE(control<QComboBox>(name)->currentText(), QStringLiteral("none found"));
    m_panel->form()->focusFirst();
    QTest::keyClicks(control<QLineEdit>("title"), QStringLiteral("x"));
    QCOMPARE(last().selectCpuFan, QString());
    QCOMPARE(last().volumeNameItem, QStringLiteral("0"));
}

void tst_SettingsPanel::leavesFieldsToTheWheelOnlyWhenTheyAreUsed()
{
    EntrySettings settings;
    settings.opacity = 0.5;
    show(keyuuid::netWork, settings);
    m_panel->activateWindow();
    const auto turn = [](QWidget *field) {
        const QPointF point = field->rect().center();
        QWheelEvent event(point, field->mapToGlobal(point.toPoint()), {}, {0, -120}, Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(field, &event);
    };
    m_panel->form()->focusFirst();
    const QList<QWidget *> fields{control<QWidget>("font"), control<QWidget>("fontSize"),
                                  control<QWidget>("opacity"), control<QWidget>("titleLines")};
    for (QWidget *field : fields) {
        QVERIFY(field->focusPolicy() == Qt::StrongFocus);
        turn(field);
    }
    QCOMPARE(m_edits->count(), 0);
    for (QWidget *field : fields) {
        field->setFocus();
        QTRY_VERIFY(field->hasFocus());
        const auto edits = m_edits->count();
        turn(field);
        QCOMPARE(m_edits->count(), edits + 1);
    }
}

void tst_SettingsPanel::isLeftWithEnterAndEscape()
{
    show(keyuuid::netWork);
    QSignalSpy left(m_panel->form(), &SettingsForm::left);
    int times = 0;
    for (const char *name : {"title", "showTitle", "font", "fontSize", "opacity", "titleLines"}) {
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
            QTest::keyClick(control<QWidget>(name), key);
            QVERIFY2(left.count() == ++times, name);
        }
    }
}

void tst_SettingsPanel::forgetsListsOfAnotherKey()
{
    show(keyuuid::physicalDisk);
    const DeckEntry another{QStringLiteral("another"), keyuuid::physicalDisk, {0, 0}, {}};
    m_panel->setEntry(&another);
    QCOMPARE(control<QComboBox>("drive")->findText(QStringLiteral("/home")), -1);
    QCOMPARE(m_panel->context(), QStringLiteral("another"));
}

void tst_SettingsPanel::showsPreviewsAsPlainText()
{
    show(keyuuid::cpu);
    m_panel->setPreview(QStringLiteral("<b>37%</b>"));
    QCOMPARE(control<QLabel>("preview")->textFormat(), Qt::PlainText);
    QCOMPARE(m_panel->preview(), QStringLiteral("Now: <b>37%</b>"));
    m_panel->setPreview({});
    QVERIFY(!control<QLabel>("preview")->isVisible());
}

void tst_SettingsPanel::tellsTheSizeOfThePicture()
{
    EntrySettings settings;
    settings.fillsKey = true;
    show(keyuuid::cpu, settings);
    const auto *text = control<QLabel>("pictureText");
    QVERIFY(!text->isVisible());
    m_panel->form()->setPictureText(QStringLiteral("Picture 1 × 2"));
    QCOMPARE(text->text(), QStringLiteral("Picture 1 × 2"));
    QVERIFY(text->isVisible());
    m_panel->form()->setPictureText({});
    QVERIFY(!text->isVisible());
    // The size is the plugin's until it is wanted otherwise.
    QVERIFY(!control<QSpinBox>("fontSize")->isEnabled());
    QTest::mouseClick(control<QCheckBox>("fillsKey"), Qt::LeftButton, {}, QPoint(8, 8));
    QVERIFY(!last().fillsKey);
    QVERIFY(control<QSpinBox>("fontSize")->isEnabled());
}

void tst_SettingsPanel::choosesAStyle()
{
    show(keyuuid::cpu);
    QTest::mouseClick(control<QToolButton>("style-graph"), Qt::LeftButton);
    QCOMPARE(last().display.style, QStringLiteral("graph"));
    // Later changes of other settings keep it.
    m_panel->form()->focusFirst();
    QTest::keyClicks(control<QLineEdit>("title"), QStringLiteral("x"));
    QCOMPARE(last().display.style, QStringLiteral("graph"));
    QCOMPARE(last().text, QStringLiteral("x"));
    // Enter in a field of the display leaves the panel like any other.
    QSignalSpy left(m_panel->form(), &SettingsForm::left);
    QTest::keyClick(control<QSpinBox>("pictureSize"), Qt::Key_Return);
    QCOMPARE(left.count(), 1);
}

void tst_SettingsPanel::showsOnlyWhatAGaugeUses()
{
    EntrySettings settings;
    settings.display.style = QStringLiteral("pair");
    show(keyuuid::netWork, settings);
    for (const char *name : {"fontSize", "fillsKey", "titleLines"})
        QVERIFY2(!control<QWidget>(name)->isVisibleTo(m_panel.get()), name);
    for (const char *name : {"title", "showTitle", "font", "color", "opacity"})
        QVERIFY2(control<QWidget>(name)->isVisibleTo(m_panel.get()), name);
    QTest::mouseClick(control<QToolButton>("style-text"), Qt::LeftButton);
    for (const char *name : {"fontSize", "fillsKey", "titleLines"})
        QVERIFY2(control<QWidget>(name)->isVisibleTo(m_panel.get()), name);
}

void tst_SettingsPanel::tellsTheShortTitle()
{
    const auto *hint = control<QLabel>("titleHint");
    show(keyuuid::gpuMemoryUsage);
    QVERIFY(!hint->isVisibleTo(m_panel.get()));
    QTest::mouseClick(control<QToolButton>("style-ring"), Qt::LeftButton);
    QVERIFY(hint->isVisibleTo(m_panel.get()));
    QVERIFY2(hint->text().contains(QLatin1String("\"GPU mem\"")), qPrintable(hint->text()));
    // A kind without a gauge shows a text whatever it is asked for.
    m_edits->clear();
    EntrySettings settings;
    settings.display.style = QStringLiteral("ring");
    show(keyuuid::cpuModel, settings);
    QVERIFY(!hint->isVisibleTo(m_panel.get()));
    QVERIFY(control<QWidget>("fontSize")->isVisibleTo(m_panel.get()));
}

// The plugin's own titles are in Chinese only where it finds the language.
void tst_SettingsPanel::tellsTheShortTitleInChinese()
{
    EntrySettings settings;
    settings.display.style = QStringLiteral("ring");
    show(keyuuid::gpuMemoryUsage, settings);
    PanelTranslator translator;
    translator.setLanguage(QStringLiteral("zh_CN"));
    QCoreApplication::installTranslator(&translator);
    QCoreApplication::processEvents(); // the panel's texts change
    const auto *hint = control<QLabel>("titleHint");
    m_panel->setLanguage(QStringLiteral("zh_CN"), false);
    QVERIFY2(hint->text().contains(QStringLiteral("“GPU mem”")), qPrintable(hint->text()));
    m_panel->setLanguage(QStringLiteral("zh_CN"), true);
    QVERIFY2(hint->text().contains(QStringLiteral("“显存”")), qPrintable(hint->text()));
}

void tst_SettingsPanel::fitsWithEverythingOpen_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("style");
    QTest::newRow("temperature") << keyuuid::cpuTemperature << QStringLiteral("graph");
    QTest::newRow("free memory") << keyuuid::memoryFreeGB << QStringLiteral("bar");
    QTest::newRow("network") << keyuuid::netWork << QStringLiteral("pair");
    QTest::newRow("drive") << keyuuid::physicalDisk << QStringLiteral("ring");
}

// At 125 % of the font size, in the narrowest panel: it scrolls down, but not to the side.
void tst_SettingsPanel::fitsWithEverythingOpen()
{
    QFETCH(const QString, action);
    QFETCH(const QString, style);
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(large.pointSizeF() * 1.25);
    QApplication::setFont(large);
    init();
    EntrySettings settings;
    settings.display.style = style;
    show(action, settings);
    m_panel->resize(usualWidth(), 400);
    for (const char *section : {"scaleSection", "colorSection", "valueSection"})
        control<QToolButton>(section)->click();
    QCoreApplication::processEvents();
    const QWidget *form = m_panel->form();
    const QScrollArea *area = m_panel->findChild<QScrollArea *>();
    QVERIFY2(area->widget()->width() <= area->viewport()->width(),
             qPrintable(QStringLiteral("%1 in %2")
                            .arg(area->widget()->width())
                            .arg(area->viewport()->width())));
    QVERIFY(form->height() > area->viewport()->height());
    const QList<QWidget *> fields = form->findChildren<QWidget *>();
    for (const QWidget *field : fields) {
        if (!field->isVisible() || field->objectName().isEmpty())
            continue;
        const QRect place(field->mapTo(form, QPoint()), field->size());
        QVERIFY2(form->rect().contains(place), qPrintable(field->objectName()));
        const auto *button = qobject_cast<const QToolButton *>(field);
        if (button != nullptr)
            QVERIFY2(button->width() >= button->minimumSizeHint().width(),
                     qPrintable(button->text()));
    }
    QApplication::setFont(usual);
}

void tst_SettingsPanel::cutsNoTextOff_data()
{
    showsWhatApplies_data();
}

// At 125 % of the font size.
void tst_SettingsPanel::cutsNoTextOff()
{
    QFETCH(const QString, action);
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(large.pointSizeF() * 1.25);
    QApplication::setFont(large);
    init();
    show(action);
    m_panel->resize(usualWidth(), 900);
    QCoreApplication::processEvents();
    const QList<QLabel *> labels = m_panel->findChildren<QLabel *>();
    for (const QLabel *label : labels) {
        if (label->isVisible() && !label->text().isEmpty() && !label->wordWrap())
            QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
        // The last letter may extend one pixel beyond its width.
        const int text = label->fontMetrics().size(Qt::TextShowMnemonic, label->text()).width();
        if (label->buddy() != nullptr && label->isVisible())
            QVERIFY2(label->width() > text + 1, qPrintable(label->text()));
    }
    const QList<QCheckBox *> checks = m_panel->findChildren<QCheckBox *>();
    for (const QCheckBox *check : checks) {
        if (check->isVisible())
            QVERIFY2(check->width() >= check->sizeHint().width(), qPrintable(check->text()));
    }
    QApplication::setFont(usual);
}

QTEST_MAIN(tst_SettingsPanel)
#include "tst_SettingsPanel.moc"
