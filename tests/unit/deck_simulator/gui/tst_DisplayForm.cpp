#include "deck_simulator/gui/ColorField.h"
#include "deck_simulator/gui/DisplayForm.h"
#include "deck_simulator/gui/NumberField.h"
#include "deck_simulator/gui/StylePicker.h"
#include "tests/support/KeyUuids.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QToolButton>
#include <QtTest>

using namespace deck;

// The form of a key's "display", used as by hand.
class tst_DisplayForm : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void offersTheStylesOfAKind_data();
    void offersTheStylesOfAKind();
    void choosesAStyle();
    void showsWhatMatters_data();
    void showsWhatMatters();
    void beginsClosed();
    void saysWhatIsChangedInAClosedSection();
    void takesNumbers_data();
    void takesNumbers();
    void keepsAHalfTypedNumber();
    void takesColours();
    void writesOnlyWhatDiffers();
    void tellsWhatIsUsual();
    void goesBackToText();
    void keepsWhatAnotherStyleUses();
    void reportsNothingByItself();
    void paintsPreviewsInTheKeysColours();

private:
    void show(const QString &action, const DisplaySettings &display = {});
    void open(const char *section) const;
    void choose(const char *combo, const QString &value) const;
    template <typename Control>
    [[nodiscard]] Control *control(const char *name) const
    {
        return m_form->findChild<Control *>(QString::fromLatin1(name));
    }
    [[nodiscard]] QToolButton *style(const char *name) const
    {
        return control<StylePicker>("style")->button(QString::fromLatin1(name));
    }
    [[nodiscard]] QJsonObject last() const
    {
        return displayObject(m_edits->constLast().at(0).value<DisplaySettings>());
    }

    std::unique_ptr<DisplayForm> m_form;
    std::unique_ptr<QSignalSpy> m_edits;
};

Q_DECLARE_METATYPE(DisplaySettings)

namespace {

DisplaySettings styled(const char *style)
{
    DisplaySettings display;
    display.style = QString::fromLatin1(style);
    return display;
}

QJsonObject member(const char *name, const QJsonValue &value)
{
    return {{QString::fromLatin1(name), value}};
}

} // namespace

void tst_DisplayForm::init()
{
    qRegisterMetaType<DisplaySettings>("DisplaySettings");
    m_form = std::make_unique<DisplayForm>();
    m_form->resize(320, 600);
    m_form->show();
    m_edits = std::make_unique<QSignalSpy>(m_form.get(), &DisplayForm::edited);
}

void tst_DisplayForm::show(const QString &action, const DisplaySettings &display)
{
    EntrySettings settings;
    settings.display = display;
    m_form->setSettings(action, settings);
    QCOMPARE(m_edits->count(), 0);
}

void tst_DisplayForm::open(const char *section) const
{
    QTest::mouseClick(control<QToolButton>(section), Qt::LeftButton);
    QVERIFY(control<QToolButton>(section)->isChecked());
}

void tst_DisplayForm::choose(const char *name, const QString &value) const
{
    auto *combo = control<QComboBox>(name);
    const int index = combo->findData(value);
    QVERIFY2(index >= 0, qPrintable(value));
    combo->setCurrentIndex(index);
    Q_EMIT combo->activated(index);
}

void tst_DisplayForm::offersTheStylesOfAKind_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("styles");
    QTest::newRow("load") << keyuuid::cpu << QStringLiteral("text bar ring graph");
    QTest::newRow("network") << keyuuid::netWork << QStringLiteral("text pair");
    QTest::newRow("model") << keyuuid::cpuModel << QStringLiteral("text");
}

void tst_DisplayForm::offersTheStylesOfAKind()
{
    QFETCH(const QString, action);
    show(action);
    QStringList styles;
    for (const char *name : {"text", "bar", "ring", "graph", "pair"}) {
        if (style(name)->isVisible())
            styles.append(QString::fromLatin1(name));
        QVERIFY(!style(name)->icon().isNull());
    }
    QTEST(styles.join(QLatin1Char(' ')), "styles");
    QVERIFY(style("text")->isChecked());
}

void tst_DisplayForm::choosesAStyle()
{
    show(keyuuid::cpu);
    QTest::mouseClick(style("ring"), Qt::LeftButton);
    QCOMPARE(last(), member("style", QStringLiteral("ring")));
    QVERIFY(style("ring")->isChecked());
    QVERIFY(control<QWidget>("shape")->isVisible());
    choose("shape", QStringLiteral("wide"));
    control<QSpinBox>("pictureSize")->setValue(72);
    QCOMPARE(last(), (QJsonObject{{QStringLiteral("style"), QStringLiteral("ring")},
                                  {QStringLiteral("shape"), QStringLiteral("wide")},
                                  {QStringLiteral("size"), 72}}));
    // A key that is asked for what it has not shows what it has.
    m_edits->clear();
    show(keyuuid::netWork, styled("ring"));
    QVERIFY(style("pair")->isChecked());
}

void tst_DisplayForm::showsWhatMatters_data()
{
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("style");
    QTest::addColumn<QString>("shown");
    const auto row = [](const QString &action, const char *style, const char *shown) {
        QTest::addRow("%s %s", qPrintable(action), style)
            << action << QString::fromLatin1(style) << QString::fromLatin1(shown);
    };
    row(keyuuid::cpu, "text", "warning critical");
    row(keyuuid::cpu, "bar",
        "shape pictureSize minimum maximum warning critical normalColor ground average decimals "
        "press");
    row(keyuuid::cpuTemperature, "graph",
        "shape pictureSize minimum maximum warning critical worse normalColor warningColor "
        "criticalColor ground span average decimals press");
    row(keyuuid::netWork, "pair",
        "shape pictureSize minimum maximum warning critical normalColor ground span average "
        "decimals rates press");
    row(keyuuid::cpuModel, "ring", "");
}

void tst_DisplayForm::showsWhatMatters()
{
    QFETCH(const QString, action);
    QFETCH(const QString, style);
    QFETCH(const QString, shown);
    show(action, styled(style.toLatin1().constData()));
    for (const char *section : {"scaleSection", "colorSection", "valueSection"}) {
        if (control<QToolButton>(section)->isVisible())
            open(section);
    }
    QStringList names;
    for (const char *name : {"shape", "pictureSize", "minimum", "maximum", "warning", "critical",
                             "worse", "normalColor", "warningColor", "criticalColor", "ground",
                             "span", "average", "decimals", "rates", "press"}) {
        const auto *field = control<QWidget>(name);
        QVERIFY2(field != nullptr, name);
        if (field->isVisible())
            names.append(QString::fromLatin1(name));
    }
    QCOMPARE(names.join(QLatin1Char(' ')), shown);
}

void tst_DisplayForm::beginsClosed()
{
    show(keyuuid::cpu, styled("ring"));
    QVERIFY(!control<QWidget>("warning")->isVisible());
    open("scaleSection");
    QVERIFY(control<QWidget>("warning")->isVisible());
    // It stays open on the way from key to key.
    show(keyuuid::memory, styled("bar"));
    QVERIFY(control<QWidget>("warning")->isVisible());
    QTest::mouseClick(control<QToolButton>("scaleSection"), Qt::LeftButton);
    QVERIFY(!control<QWidget>("warning")->isVisible());
}

void tst_DisplayForm::saysWhatIsChangedInAClosedSection()
{
    DisplaySettings display = styled("ring");
    display.critical = 90;
    show(keyuuid::cpu, display);
    const QString changed = QStringLiteral("Scale and thresholds, changed");
    QCOMPARE(control<QToolButton>("scaleSection")->text(), changed);
    QCOMPARE(control<QToolButton>("colorSection")->text(), QStringLiteral("Colours"));
    open("scaleSection");
    QCOMPARE(control<QToolButton>("scaleSection")->text(), QStringLiteral("Scale and thresholds"));
}

void tst_DisplayForm::takesNumbers_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QJsonObject>("written");
    const auto row = [](const char *typed, const QJsonObject &written) {
        QTest::newRow(typed) << QString::fromLatin1(typed) << written;
    };
    row("80", member("warning", 80));
    row("-0.5", member("warning", -0.5));
    row("1,5", member("warning", 1.5));
    row("0", member("warning", 0));
    row("8x0", member("warning", 80)); // letters do not get in
}

void tst_DisplayForm::takesNumbers()
{
    QFETCH(const QString, typed);
    QFETCH(const QJsonObject, written);
    show(keyuuid::cpu);
    open("scaleSection");
    QLineEdit *text = control<NumberField>("warning")->textField();
    QTest::keyClicks(text, typed);
    QCOMPARE(m_edits->count(), 0); // half typed
    QTest::keyClick(text, Qt::Key_Return);
    QCOMPARE(m_edits->count(), 1);
    QCOMPARE(last(), written);
    QTest::keyClick(text, Qt::Key_Return); // the same again is no change
    QCOMPARE(m_edits->count(), 1);
    text->clear();
    QCOMPARE(last(), QJsonObject());
}

void tst_DisplayForm::keepsAHalfTypedNumber()
{
    DisplaySettings display = styled("ring");
    display.warning = 70;
    show(keyuuid::cpu, display);
    open("scaleSection");
    QLineEdit *text = control<NumberField>("warning")->textField();
    QCOMPARE(text->text(), QStringLiteral("70"));
    text->selectAll();
    QTest::keyClicks(text, QStringLiteral("-"));
    // The plugin's reply comes in between.
    m_form->setSettings(keyuuid::cpu, [&] {
        EntrySettings settings;
        settings.display = display;
        return settings;
    }());
    QCOMPARE(text->text(), QStringLiteral("-"));
    QTest::keyClicks(text, QStringLiteral("5"));
    QTest::keyClick(text, Qt::Key_Return);
    QCOMPARE(last().value(QLatin1String("warning")), QJsonValue(-5));
    // Another key's number takes its place.
    m_edits->clear();
    text->selectAll();
    QTest::keyClicks(text, QStringLiteral("-"));
    show(keyuuid::memory, display);
    QCOMPARE(text->text(), QStringLiteral("70"));
}

void tst_DisplayForm::takesColours()
{
    show(keyuuid::cpu, styled("ring"));
    open("colorSection");
    auto *normal = control<ColorField>("normalColor");
    QCOMPARE(normal->textField()->placeholderText(), QStringLiteral("#56B4E9"));
    auto *ground = control<ColorField>("ground");
    QCOMPARE(ground->textField()->placeholderText(), QStringLiteral("none"));
    QTest::keyClicks(ground->textField(), QStringLiteral("#123456"));
    QCOMPARE(last().value(QLatin1String("ground")), QJsonValue(QStringLiteral("#123456")));
    ground->textField()->selectAll();
    QTest::keyClick(ground->textField(), Qt::Key_Delete);
    QVERIFY(!last().contains(QLatin1String("ground")));
    QTest::keyClicks(normal->textField(), QStringLiteral("orange"));
    QCOMPARE(last().value(QLatin1String("normalColor")), QJsonValue(QStringLiteral("orange")));
}

void tst_DisplayForm::writesOnlyWhatDiffers()
{
    show(keyuuid::download, styled("graph"));
    open("valueSection");
    control<QSpinBox>("span")->setValue(300);
    control<QSpinBox>("average")->setValue(5);
    choose("decimals", QStringLiteral("0"));
    choose("rates", QStringLiteral("bits"));
    choose("press", QStringLiteral("extremes"));
    QCOMPARE(last(), (QJsonObject{{QStringLiteral("style"), QStringLiteral("graph")},
                                  {QStringLiteral("span"), 300},
                                  {QStringLiteral("average"), 5},
                                  {QStringLiteral("decimals"), 0},
                                  {QStringLiteral("rates"), QStringLiteral("bits")},
                                  {QStringLiteral("press"), QStringLiteral("extremes")}}));
    control<QSpinBox>("span")->setValue(60);
    control<QSpinBox>("average")->setValue(1);
    choose("decimals", QString());
    choose("rates", QStringLiteral("bytes"));
    choose("press", QStringLiteral("none"));
    QCOMPARE(last(), member("style", QStringLiteral("graph")));
    QTest::mouseClick(style("text"), Qt::LeftButton);
    QCOMPARE(last(), QJsonObject());
}

void tst_DisplayForm::tellsWhatIsUsual()
{
    const auto usual = [this](const char *name) {
        return control<NumberField>(name)->textField()->placeholderText();
    };
    show(keyuuid::cpuTemperature, styled("ring"));
    QCOMPARE(usual("minimum"), QStringLiteral("20"));
    QCOMPARE(usual("critical"), QStringLiteral("95"));
    QCOMPARE(control<QComboBox>("worse")->itemText(0), QStringLiteral("Above (as usual)"));
    show(keyuuid::cpuTemperature); // a text has no thresholds of its kind
    QCOMPARE(usual("critical"), QStringLiteral("none"));
    show(keyuuid::memoryFreeGB, styled("bar"));
    QCOMPARE(usual("maximum"), QStringLiteral("the total"));
    QCOMPARE(control<QComboBox>("worse")->itemText(0), QStringLiteral("Below (as usual)"));
    show(keyuuid::cpuClock, styled("bar"));
    QCOMPARE(usual("maximum"), QStringLiteral("automatic"));
    QStringList units;
    const QList<QLabel *> labels = control<NumberField>("maximum")->findChildren<QLabel *>();
    for (const QLabel *label : labels)
        units.append(label->text());
    QVERIFY(units.contains(QStringLiteral("MHz")));
}

void tst_DisplayForm::goesBackToText()
{
    show(keyuuid::cpu);
    auto *reset = control<QPushButton>("resetDisplay");
    QVERIFY(!reset->isVisible());
    DisplaySettings display = styled("ring");
    display.span = 300;
    display.worse = QStringLiteral("below");
    show(keyuuid::cpu, display);
    QVERIFY(reset->isVisible());
    QTest::mouseClick(reset, Qt::LeftButton);
    QCOMPARE(last(), QJsonObject());
    QVERIFY(style("text")->isChecked());
    QVERIFY(!reset->isVisible());
}

void tst_DisplayForm::keepsWhatAnotherStyleUses()
{
    DisplaySettings display = styled("graph");
    display.span = 300;
    show(keyuuid::cpu, display);
    QTest::mouseClick(style("bar"), Qt::LeftButton);
    QTest::mouseClick(style("graph"), Qt::LeftButton);
    QCOMPARE(last(), displayObject(display));
}

void tst_DisplayForm::reportsNothingByItself()
{
    DisplaySettings display = styled("graph");
    display.size = 100;
    display.minimum = 1;
    display.maximum = 2;
    display.warning = 3;
    display.critical = 4;
    display.worse = QStringLiteral("below");
    display.ground = QStringLiteral("black");
    display.span = 99;
    display.average = 9;
    display.decimals = 3;
    show(keyuuid::cpu, display);
    show(keyuuid::netWork);
    show(keyuuid::cpuModel, display);
    show(keyuuid::cpu);
    QCOMPARE(m_edits->count(), 0);
}

void tst_DisplayForm::paintsPreviewsInTheKeysColours()
{
    const auto preview = [this] { return style("bar")->icon().pixmap(40, 40).toImage(); };
    show(keyuuid::cpu, styled("bar"));
    const QImage usual = preview();
    DisplaySettings display = styled("bar");
    display.normalColor = QStringLiteral("red");
    show(keyuuid::cpu, display);
    const QImage red = preview();
    QVERIFY(red != usual);
    display.shape = QStringLiteral("wide");
    show(keyuuid::cpu, display);
    QVERIFY(preview() != red);
}

QTEST_MAIN(tst_DisplayForm)
#include "tst_DisplayForm.moc"
