#include "deck_simulator/deck/ActionList.h"
#include "deck_simulator/gui/PanelTranslator.h"
#include "deck_simulator/panel/GaugeKinds.h"
#include "deck_simulator/panel/MissingReading.h"

#include <QFile>
#include <QRegularExpression>
#include <QSet>
#include <QtTest>

using namespace deck;

class tst_PanelTranslator : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void knowsEveryTextOfThePanel_data();
    void knowsEveryTextOfThePanel();
    void hasNoTextThatNobodyShows();
    void keepsPlaceholders();
    void translatesReadingsAndTitles();
    void leavesOtherLanguagesAlone();
};

namespace {

const char *const panelSources[] = {
    "gui/SettingsPanel", "gui/SettingsForm",        "gui/DisplayForm",      "gui/FormSection",
    "gui/FormControls",  "gui/StylePicker",         "gui/ColorField",       "gui/NumberField",
    "gui/SensorPicker",  "panel/InspectorRequests", "panel/MissingReading", "panel/GaugeKinds",
    "panel/PictureText",
};

QString sourceOf(const char *name)
{
    QFile file(QStringLiteral(SOURCES "/deck_simulator/%1.cpp").arg(QLatin1String(name)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

// Adjacent literals as one text.
QString joined(const QString &literals)
{
    static const QRegularExpression seam(QStringLiteral("\"\\s+\""));
    QString text = literals.trimmed();
    text.remove(seam);
    text = text.mid(1, text.size() - 2);
    return text.replace(QStringLiteral("\\\""), QStringLiteral("\""));
}

QStringList textsIn(const QString &source)
{
    static const QRegularExpression call(QStringLiteral(
        R"((?:\btr\(|\bpanelText\(|NOOP\("[^"]*",)\s*((?:"(?:[^"\\]|\\.)*"\s*)+)[),])"));
    QStringList texts;
    QRegularExpressionMatchIterator matches = call.globalMatch(source);
    while (matches.hasNext())
        texts.append(joined(matches.next().captured(1)));
    return texts;
}

QSet<QString> knownTexts()
{
    const QStringList texts = PanelTranslator::texts();
    return {texts.begin(), texts.end()};
}

} // namespace

void tst_PanelTranslator::knowsEveryTextOfThePanel_data()
{
    QTest::addColumn<QString>("source");
    for (const char *name : panelSources)
        QTest::newRow(name) << sourceOf(name);
}

void tst_PanelTranslator::knowsEveryTextOfThePanel()
{
    QFETCH(const QString, source);
    QVERIFY(!source.isEmpty());
    const QSet<QString> known = knownTexts();
    const QStringList texts = textsIn(source);
    static const QRegularExpression word(QStringLiteral("[A-Za-z]"));
    for (const QString &text : texts)
        QVERIFY2(known.contains(text) || !text.contains(word), qPrintable(text));
}

void tst_PanelTranslator::hasNoTextThatNobodyShows()
{
    QString sources;
    for (const char *name : panelSources)
        sources += sourceOf(name);
    static const QRegularExpression seam(QStringLiteral("\"\\s+\""));
    sources.remove(seam).replace(QStringLiteral("\\\""), QStringLiteral("\""));
    QVERIFY(textsIn(sources).size() > 50);
    const QStringList texts = PanelTranslator::texts();
    QCOMPARE(knownTexts().size(), texts.size());
    for (const QString &text : texts)
        QVERIFY2(sources.contains(text), qPrintable(text));
}

void tst_PanelTranslator::keepsPlaceholders()
{
    PanelTranslator translator;
    translator.setLanguage(QStringLiteral("zh_CN"));
    static const QRegularExpression chinese(QStringLiteral("[\\x{4e00}-\\x{9fff}]"));
    const QStringList texts = PanelTranslator::texts();
    for (const QString &text : texts) {
        const QString translated =
            translator.translate("any", text.toUtf8().constData(), nullptr, -1);
        QVERIFY2(translated.contains(chinese), qPrintable(text));
        for (const char *mark : {"%1", "%2", "%3"})
            QCOMPARE(translated.count(QLatin1String(mark)), text.count(QLatin1String(mark)));
        const auto ampersand = text.indexOf(QLatin1Char('&'));
        if (ampersand >= 0) // the key stays the same
            QVERIFY2(
                translated.contains(QStringLiteral("(&%1)").arg(text.at(ampersand + 1).toUpper())),
                qPrintable(text));
    }
}

void tst_PanelTranslator::translatesReadingsAndTitles()
{
    PanelTranslator translator;
    translator.setLanguage(QStringLiteral("zh_CN"));
    QCoreApplication::installTranslator(&translator);
    QCOMPARE(notAvailable({}), QStringLiteral("在此机器上不可用"));
    QCOMPARE(missingText(QStringLiteral("Cpu Voltage"), QStringLiteral("0V"), {}),
             QStringLiteral("在此机器上不可用（无法读取处理器的传感器）"));
    const QSet<QString> same{QString(), QStringLiteral("CPU"), QStringLiteral("GPU")};
    const QSet<QString> known = knownTexts();
    for (const DeckAction &action : deckActions()) {
        const QString title = gaugeKind(action.uuid, {}).shortTitle;
        QVERIFY2(same.contains(title) || known.contains(title), qPrintable(title));
    }
}

void tst_PanelTranslator::leavesOtherLanguagesAlone()
{
    PanelTranslator translator;
    for (const char *language : {"en", "", "fr", "zh"}) {
        translator.setLanguage(QString::fromLatin1(language));
        QVERIFY(translator.translate("any", "Bar", nullptr, -1).isNull());
    }
    translator.setLanguage(QStringLiteral("zh_CN"));
    QVERIFY(translator.translate("any", "no such text", nullptr, -1).isNull());
}

QTEST_MAIN(tst_PanelTranslator)
#include "tst_PanelTranslator.moc"
