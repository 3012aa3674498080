#include "render/FontRegistry.h"
#include "render/normalAction.h"
#include "sensors/systemInfor.h"
#include "tests/support/KeyUuids.h"
#include "tests/support/MessageCapture.h"
#include "tests/support/TestFonts.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtEndian>
#include <QtTest>

/// The available fonts: the host's list, registration, and the choice of a font by its
/// specification.
class tst_FontRegistry : public QObject
{
    Q_OBJECT

public:
    static void initMain() { testfonts::hideMachineFonts(); }

private Q_SLOTS:
    void initTestCase();
    void init();

    void readsTheFontList();
    void readsOddFontLists_data();
    void readsOddFontLists();
    void reportsTextThatIsNoObject_data();
    void reportsTextThatIsNoObject();

    void makesRecords_data();
    void makesRecords();
    void fillsEveryFieldOfARecord();

    void leavesOutFamiliesThatStoodBefore_data();
    void leavesOutFamiliesThatStoodBefore();

    void refusesBrokenFiles_data();
    void refusesBrokenFiles();
    void refusesAPipeWithoutWaiting();
    void survivesTruncatedFonts();

    void listsAFamilyOverSeveralFiles();
    void listsTheDefaultFontWithItsStyle();
    void neverListsRobotoLightRegular();
    void listsEveryFamilyOfACollection();

    void infersTheStyle_data();
    void infersTheStyle();
    void infersFromTheFirstRecord();
    void infersNothingWithoutARecord();

    void makesAFontOfFamilyAndStyle();
    void makesAFontOfAnUnknownStyle();
    void makesAFontOfAnInferredStyle();
    void setsTheFamilyAlone_data();
    void setsTheFamilyAlone();
    void takesNoStyleWhenTheBarStandsFirst();
    void aKeyTakesTheFontWithoutItsOldSize();

private:
    QString write(const QString &name, const QByteArray &content) const;

    QTemporaryDir m_folder;
};

namespace {

using fontregistry::loadFont;

QStringList listedSpecs()
{
    QStringList specs;
    for (const FontRecord &record : qAsConst(systemInfor::fontlist_one))
        specs.append(record.spec);
    return specs;
}

/// The content of a font file; empty when this machine has none.
QByteArray fontData(const char *fileName)
{
    QFile file(testfonts::find(QString::fromLatin1(fileName)));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray utf16(const char *latin1)
{
    QByteArray bytes;
    for (const char *character = latin1; *character; ++character)
        bytes.append('\0').append(*character);
    return bytes;
}

/// The font "Roboto" under another family name of the same length.
QByteArray renamed(QByteArray font, const char *family)
{
    return font.replace("Roboto", family).replace(utf16("Roboto"), utf16(family));
}

/// The font under its names for old programs, which know four styles per family: "Roboto" "Light"
/// becomes "Roboto Light" "Regular".
QByteArray withOldNames(QByteArray font)
{
    const auto number = [&font](int offset) {
        return qFromBigEndian<quint16>(font.constData() + offset);
    };
    const auto entry = font.indexOf("name");
    const auto table = static_cast<int>(qFromBigEndian<quint32>(font.constData() + entry + 8));
    for (int i = 0; i < number(table + 2); ++i) {
        const int nameId = table + 6 + 12 * i + 6;
        if (number(nameId) == 16 || number(nameId) == 17)
            qToBigEndian<quint16>(255, font.data() + nameId);
    }
    return font;
}

void addRecord(const char *spec, const char *displayName)
{
    FontRecord record;
    record.displayName = QString::fromUtf8(displayName);
    record.spec = QString::fromUtf8(spec);
    systemInfor::fontlist_one.append(record);
}

QString quoted(const QString &text)
{
    return MessageCapture::quoted(text);
}

} // namespace

#define SKIP_WITHOUT(data, package)                                                                \
    if ((data).isEmpty())                                                                          \
    QSKIP("The fonts of " package " are missing")

QString tst_FontRegistry::write(const QString &name, const QByteArray &content) const
{
    QString path = m_folder.filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("Cannot write %s", qPrintable(path));
    return path;
}

void tst_FontRegistry::initTestCase()
{
    QVERIFY(m_folder.isValid());
}

void tst_FontRegistry::init()
{
    systemInfor::fontlist_one.clear();
}

void tst_FontRegistry::readsTheFontList()
{
    const auto fonts = fontregistry::loadFontList(QStringLiteral(
        "{'application':{'language':'zh_CN'},'fonts':[{'name':'粗体','url':'/a b/Roboto.ttf'},"
        "{\"name\":\"two\",\"url\":\"relative.otf\",\"more\":1}],'devices':[]}"));
    QCOMPARE(fonts.size(), 2);
    QCOMPARE(fonts.at(0).name, QStringLiteral("粗体"));
    QCOMPARE(fonts.at(0).url, QStringLiteral("/a b/Roboto.ttf"));
    QCOMPARE(fonts.at(1).name, QStringLiteral("two"));
    QCOMPARE(fonts.at(1).url, QStringLiteral("relative.otf"));
}

void tst_FontRegistry::readsOddFontLists_data()
{
    QTest::addColumn<QString>("info");
    QTest::addColumn<QStringList>("urls");
    const auto row = [](const char *info, const QStringList &urls = {}) {
        QTest::newRow(info) << QString::fromUtf8(info) << urls;
    };
    row("{}");
    row("{'fonts':null}");
    row("{'fonts':'a.ttf'}");
    row("{'fonts':{'name':'a','url':'a.ttf'}}");
    row("{'Fonts':[{'url':'a.ttf'}]}");
    row("{'fonts':[]}");
    row("{'fonts':[1,null,true,'a.ttf',['b.ttf'],[{'url':'c.ttf'}]]}");
    row("{'fonts':['a',{'url':'b.ttf'},2,{'url':'c.ttf'}]}",
        {QStringLiteral("b.ttf"), QStringLiteral("c.ttf")});
    row("{'fonts':[{},{'name':'a'},{'url':7},{'url':{}}]}",
        {QString(), QString(), QString(), QString()});
}

void tst_FontRegistry::readsOddFontLists()
{
    QFETCH(QString, info);
    const MessageCapture capture;
    QStringList urls;
    for (const fontregistry::FontFile &font : fontregistry::loadFontList(info))
        urls.append(font.url);
    QTEST(urls, "urls");
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_FontRegistry::reportsTextThatIsNoObject_data()
{
    QTest::addColumn<QString>("info");
    for (const char *info : {"", "en", "[]", "[{'fonts':[]}]", "{", "'text'", "12", "{'a':'it's'}",
                             "{fonts:[]}", "{'fonts':[{'url':'a.ttf'}]} more"})
        QTest::newRow(info) << QString::fromUtf8(info);
    QTest::newRow("long") << QString(1000000, QLatin1Char('['));
    QTest::newRow("zero character") << QString(1, QChar(0));
}

void tst_FontRegistry::reportsTextThatIsNoObject()
{
    QFETCH(QString, info);
    const MessageCapture capture;
    QVERIFY(fontregistry::loadFontList(info).isEmpty());
    QCOMPARE(MessageCapture::messages(),
             QStringList{quoted(QStringLiteral("Invalid JSON format"))});
}

void tst_FontRegistry::makesRecords_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<QString>("styles");
    QTest::addColumn<QString>("specs");
    const auto row = [](const char *family, const char *styles, const char *specs) {
        QTest::addRow("%s: %s", family, styles)
            << QString::fromUtf8(family) << QString::fromUtf8(styles) << QString::fromUtf8(specs);
    };
    row("Foo", "Regular,Bold", "Foo,Foo|Bold");
    row("Foo", "Bold,Regular,Italic", "Foo,Foo|Regular,Foo|Italic");
    row("Roboto", "Bold,Regular", "Roboto|Bold,Roboto|Regular");
    row("Roboto", "Regular,Bold", "Roboto,Roboto|Bold");
    row("roboto", "Bold,Regular", "roboto,roboto|Regular");
    row("Roboto Light", "Regular", "");
    row("Roboto Light", "Regular,Italic,Bold", "Roboto Light,Roboto Light|Bold");
    row("Roboto Light", "Italic,Regular", "Roboto Light");
    row("Roboto Medium", "Regular", "Roboto Medium");
    row(" Foo ", "Bold", " Foo ");
    row("文泉驿微米黑", "Regular,粗体", "文泉驿微米黑,文泉驿微米黑|粗体");
}

void tst_FontRegistry::makesRecords()
{
    QFETCH(QString, family);
    QFETCH(QString, styles);
    const auto records = fontregistry::recordsOf(family, styles.split(QLatin1Char(',')),
                                                 QStringLiteral("/fonts/file.ttf"));
    QStringList specs;
    for (const FontRecord &record : records)
        specs.append(record.spec);
    QTEST(specs.join(QLatin1Char(',')), "specs");
}

void tst_FontRegistry::fillsEveryFieldOfARecord()
{
    QVERIFY(fontregistry::recordsOf(QStringLiteral("Foo"), {}, QStringLiteral("a.ttf")).isEmpty());
    const auto records = fontregistry::recordsOf(QStringLiteral("Foo"), {QStringLiteral("Bold")},
                                                 QStringLiteral("fonts/../Foo-1.2.ttf"));
    QCOMPARE(records.size(), 1);
    QCOMPARE(records[0].family, QStringLiteral("Foo"));
    QCOMPARE(records[0].style, QStringLiteral("Bold"));
    QCOMPARE(records[0].filePath, QFileInfo(QStringLiteral("Foo-1.2.ttf")).absoluteFilePath());
    QCOMPARE(records[0].baseName, QStringLiteral("Foo-1"));
    QCOMPARE(records[0].displayName, QStringLiteral("Foo-1 Bold"));
    QCOMPARE(records[0].spec, QStringLiteral("Foo"));
}

void tst_FontRegistry::leavesOutFamiliesThatStoodBefore_data()
{
    QTest::addColumn<QString>("families");
    QTest::addColumn<QString>("distinct");
    const auto row = [](const char *families, const char *distinct) {
        QTest::newRow(families) << QString::fromUtf8(families) << QString::fromUtf8(distinct);
    };
    row("Foo,Bar", "Foo,Bar");
    row("Foo,Foo", "Foo");
    row("Foo,Foo ", "Foo");
    row("Foo,Bar, Foo ,Bar", "Foo,Bar");
    row("Foo,foo", "Foo,foo");
    // The untrimmed name is the one that counts as seen.
    row("Foo ,Foo", "Foo ,Foo");
    row("Foo ,Foo ", "Foo ,Foo ");
}

void tst_FontRegistry::leavesOutFamiliesThatStoodBefore()
{
    QFETCH(QString, families);
    const QStringList distinct = fontregistry::distinctFamilies(families.split(QLatin1Char(',')));
    QTEST(distinct.join(QLatin1Char(',')), "distinct");
}

void tst_FontRegistry::refusesBrokenFiles_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no path") << QString();
    QTest::newRow("missing") << m_folder.filePath(QStringLiteral("missing.ttf"));
    QTest::newRow("folder") << m_folder.path();
    QTest::newRow("device without end") << QStringLiteral("/dev/zero");
    QTest::newRow("zero character") << QString(1, QChar(0));
    QTest::newRow("long path") << QString(100000, QLatin1Char('x'));
    QTest::newRow("empty") << write(QStringLiteral("empty.ttf"), {});
    QTest::newRow("text") << write(QStringLiteral("text.ttf"), "no font");
    QByteArray random(100000, '\0');
    QRandomGenerator(1).fillRange(reinterpret_cast<quint32 *>(random.data()), random.size() / 4);
    QTest::newRow("random") << write(QStringLiteral("random.ttf"), random);
    QTest::newRow("header and random")
        << write(QStringLiteral("header.ttf"), QByteArray("\0\1\0\0", 4) + random);
    QFile huge(m_folder.filePath(QStringLiteral("huge.ttf")));
    if (huge.open(QIODevice::WriteOnly) && huge.resize(qint64(600) * 1024 * 1024))
        QTest::newRow("huge") << huge.fileName();
}

void tst_FontRegistry::refusesBrokenFiles()
{
    QFETCH(QString, path);
    const MessageCapture capture;
    loadFont(path);
    QCOMPARE(MessageCapture::count(quoted(path + QStringLiteral(" loaded failed"))), 1);
    QVERIFY(systemInfor::fontlist_one.isEmpty());
}

void tst_FontRegistry::refusesAPipeWithoutWaiting()
{
    const QString path = m_folder.filePath(QStringLiteral("pipe.ttf"));
    if (QProcess::execute(QStringLiteral("mkfifo"), {path}) != 0)
        QSKIP("mkfifo is missing");
    const MessageCapture capture;
    loadFont(path);
    QCOMPARE(MessageCapture::messages(),
             QStringList{quoted(path + QStringLiteral(" loaded failed"))});
    QVERIFY(systemInfor::fontlist_one.isEmpty());
}

/// Half a font file still has some glyphs: it may be accepted, and then paints what it can.
void tst_FontRegistry::survivesTruncatedFonts()
{
    const QByteArray font = renamed(fontData("Roboto-Bold.ttf"), "Cutcut");
    SKIP_WITHOUT(font, "fonts-roboto-unhinted");
    for (const int size : {1, 12, 100, 1000}) {
        loadFont(write(QStringLiteral("truncated%1.ttf").arg(size), font.left(size)));
        QCOMPARE(listedSpecs(), QStringList());
    }
    normalAction key(nullptr, QString(), QStringLiteral("ctx"));
    const QByteArray::size_type few = 20000;
    for (const auto size : {few, font.size() / 2, font.size() - 1000}) {
        loadFont(write(QStringLiteral("truncated%1.ttf").arg(size), font.left(size)));
        key.setFontFromSpec(QStringLiteral("Cutcut|Bold"));
        key.font.setPixelSize(24);
        QVERIFY(!key.normalPainting(QStringLiteral("CPU: 45°C, wxyz")).isEmpty());
    }
    loadFont(write(QStringLiteral("whole.ttf"), font));
    QVERIFY(listedSpecs().contains(QStringLiteral("Cutcut")));
}

void tst_FontRegistry::listsAFamilyOverSeveralFiles()
{
    const QByteArray regular = renamed(fontData("Roboto-Regular.ttf"), "Foofoo");
    const QByteArray bold = renamed(fontData("Roboto-Bold.ttf"), "Foofoo");
    SKIP_WITHOUT(regular + bold, "fonts-roboto-unhinted");
    const QString regularPath = write(QStringLiteral("Foofoo-Regular.ttf"), regular);
    const QString boldPath = write(QStringLiteral("Foofoo-Bold.ttf"), bold);
    const MessageCapture capture;
    const QString success = QStringLiteral(" loaded success, contains:");

    loadFont(regularPath);
    QCOMPARE(listedSpecs(), QStringList{QStringLiteral("Foofoo")});
    QCOMPARE(MessageCapture::messages(),
             (QStringList{quoted(regularPath + success),
                          quoted(QStringLiteral("  Foofoo  [Regular]"))}));
    MessageCapture::clear();

    loadFont(boldPath);
    QCOMPARE(listedSpecs(), (QStringList{QStringLiteral("Foofoo"), QStringLiteral("Foofoo|Bold")}));
    QCOMPARE(MessageCapture::messages(),
             (QStringList{quoted(boldPath + success), quoted(QStringLiteral("  Foofoo  [Bold]"))}));
    MessageCapture::clear();

    const FontRecord &record = systemInfor::fontlist_one.at(1);
    QCOMPARE(record.filePath, boldPath);
    QCOMPARE(record.baseName, QStringLiteral("Foofoo-Bold"));
    QCOMPARE(record.displayName, QStringLiteral("Foofoo-Bold Bold"));

    // A copy, or the same file again, adds nothing new.
    loadFont(write(QStringLiteral("copy.ttf"), bold));
    loadFont(boldPath);
    QCOMPARE(systemInfor::fontlist_one.size(), 2);
    QCOMPARE(MessageCapture::messages().size(), 2);
}

void tst_FontRegistry::listsTheDefaultFontWithItsStyle()
{
    const QString bold = testfonts::find(QStringLiteral("Roboto-Bold.ttf"));
    const QString regular = testfonts::find(QStringLiteral("Roboto-Regular.ttf"));
    SKIP_WITHOUT(bold + regular, "fonts-roboto-unhinted");
    loadFont(bold);
    QCOMPARE(listedSpecs(), QStringList{QStringLiteral("Roboto|Bold")});
    QCOMPARE(systemInfor::fontlist_one[0].filePath, QFileInfo(bold).absoluteFilePath());
    loadFont(regular);
    QCOMPARE(listedSpecs(),
             (QStringList{QStringLiteral("Roboto|Bold"), QStringLiteral("Roboto|Regular")}));
}

void tst_FontRegistry::neverListsRobotoLightRegular()
{
    const QByteArray light = fontData("Roboto-Light.ttf");
    SKIP_WITHOUT(light, "fonts-roboto-unhinted");
    const QString path = write(QStringLiteral("Light.ttf"), withOldNames(light));
    const MessageCapture capture;
    loadFont(path);
    QVERIFY(
        QFontDatabase().styles(QStringLiteral("Roboto Light")).contains(QStringLiteral("Regular")));
    QCOMPARE(listedSpecs(), QStringList());
    QCOMPARE(MessageCapture::messages(),
             QStringList{quoted(path + QStringLiteral(" loaded success, contains:"))});
}

void tst_FontRegistry::listsEveryFamilyOfACollection()
{
    const QString path = testfonts::find(QStringLiteral("wqy-microhei.ttc"));
    SKIP_WITHOUT(path, "fonts-wqy-microhei");
    loadFont(path);
    QCOMPARE(listedSpecs(), (QStringList{QStringLiteral("WenQuanYi Micro Hei"),
                                         QStringLiteral("WenQuanYi Micro Hei Mono")}));
    QCOMPARE(systemInfor::fontlist_one[1].baseName, QStringLiteral("wqy-microhei"));
}

void tst_FontRegistry::infersTheStyle_data()
{
    QTest::addColumn<QString>("displayName");
    QTest::addColumn<QString>("style");
    const auto row = [](const char *displayName, const char *style) {
        QTest::newRow(displayName) << QString::fromUtf8(displayName) << QString::fromUtf8(style);
    };
    row("Foo-Italic Italic", "Italic");
    row("Foo Bold", "Bold");
    row("Foo bold", "bold");
    row("Foo BOLD", "BOLD");
    row("Foo SemiBold", "Bold");
    row("Foo Bold Italic", "Italic");
    row("Foo Times-Roman", "Roman");
    row("Foo ExtraLight", "Light");
    row("Foo Regular", "Regular");
    row("Foo-Bold Book", "");
    row("Foo Bold ", "");
    row("Bold Foo", "");
    row("Foo Medium", "");
    row("Foo 粗体", "");
    row("", "");
}

void tst_FontRegistry::infersTheStyle()
{
    QFETCH(QString, displayName);
    addRecord("Foo", displayName.toUtf8().constData());
    const MessageCapture capture;
    QTEST(fontregistry::inferStyleFromName(QStringLiteral("Foo")), "style");
    QCOMPARE(MessageCapture::messages(),
             QStringList{quoted(QStringLiteral("进行匹配的字符串: Foo"))});
}

void tst_FontRegistry::infersFromTheFirstRecord()
{
    addRecord("Foo|Bold", "Foo Bold");
    addRecord("Foo", "Foo Italic");
    addRecord("Foo", "Foo Light");
    QCOMPARE(fontregistry::inferStyleFromName(QStringLiteral("Foo")), QStringLiteral("Italic"));
}

void tst_FontRegistry::infersNothingWithoutARecord()
{
    addRecord("Foo", "Foo Bold");
    for (const char *spec : {"", "foo", "Foo ", "Foo|Bold", "Bold"})
        QCOMPARE(fontregistry::inferStyleFromName(QString::fromUtf8(spec)), QString());
}

void tst_FontRegistry::makesAFontOfFamilyAndStyle()
{
    const QByteArray bold = renamed(fontData("Roboto-BoldItalic.ttf"), "Barbar");
    SKIP_WITHOUT(bold, "fonts-roboto-unhinted");
    loadFont(write(QStringLiteral("Barbar.ttf"), bold));
    const MessageCapture capture;
    const QFont font = fontregistry::fontFromSpec(QStringLiteral("Barbar|Bold Italic"), 17);
    QCOMPARE(font.family(), QStringLiteral("Barbar"));
    QCOMPARE(font.styleName(), QStringLiteral("Bold Italic"));
    QCOMPARE(font.pointSize(), 17);
    QCOMPARE(QFontInfo(font).family(), QStringLiteral("Barbar"));
    QCOMPARE(QFontInfo(font).styleName(), QStringLiteral("Bold Italic"));
    QCOMPARE(MessageCapture::messages(), QStringList());
}

void tst_FontRegistry::makesAFontOfAnUnknownStyle()
{
    const QByteArray regular = renamed(fontData("Roboto-Regular.ttf"), "Bazbaz");
    SKIP_WITHOUT(regular, "fonts-roboto-unhinted");
    loadFont(write(QStringLiteral("Bazbaz.ttf"), regular));
    const QString style = QStringLiteral("Fantasy|Bold");
    const QFont nearest = QFontDatabase().font(QStringLiteral("Bazbaz"), style, 12);
    const QFont font = fontregistry::fontFromSpec(QStringLiteral("Bazbaz|") + style, 12);
    QCOMPARE(font.family(), QStringLiteral("Bazbaz"));
    QCOMPARE(font.styleName(), nearest.exactMatch() ? nearest.styleName() : style);

    const QFont unknown = fontregistry::fontFromSpec(QStringLiteral("No such family|Bold"), 12);
    QCOMPARE(unknown.styleName(), QStringLiteral("Bold"));
}

void tst_FontRegistry::makesAFontOfAnInferredStyle()
{
    const QByteArray italic = renamed(fontData("Roboto-Italic.ttf"), "Quxqux");
    SKIP_WITHOUT(italic, "fonts-roboto-unhinted");
    loadFont(write(QStringLiteral("Quxqux-Italic.ttf"), italic));
    QCOMPARE(systemInfor::fontlist_one.at(0).displayName, QStringLiteral("Quxqux-Italic Italic"));
    const MessageCapture capture;
    const QFont font = fontregistry::fontFromSpec(QStringLiteral("Quxqux"), 17);
    QCOMPARE(font.family(), QStringLiteral("Quxqux"));
    QVERIFY(font.italic());
    QCOMPARE(font.pointSize(), 17);
    QCOMPARE(MessageCapture::messages(),
             (QStringList{quoted(QStringLiteral("进行匹配的字符串: Quxqux")),
                          quoted(QStringLiteral("尝试从文件结尾的类型判断: Italic"))}));
}

void tst_FontRegistry::setsTheFamilyAlone_data()
{
    QTest::addColumn<QString>("spec");
    QTest::addColumn<QString>("family");
    QTest::newRow("unknown") << QStringLiteral("Foo") << QStringLiteral("Foo");
    QTest::newRow("empty") << QString() << QString();
    QTest::newRow("no style after the bar") << QStringLiteral("Foo|") << QStringLiteral("Foo");
    QTest::newRow("bar alone") << QStringLiteral("|") << QString();
    QTest::newRow("bar first") << QStringLiteral("|Bold") << QString();
    const QString longName(100000, QLatin1Char('x'));
    QTest::newRow("long") << longName << longName;
}

void tst_FontRegistry::setsTheFamilyAlone()
{
    QFETCH(QString, spec);
    const MessageCapture capture;
    const QFont font = fontregistry::fontFromSpec(spec, 17);
    QTEST(font.family(), "family");
    QCOMPARE(font.styleName(), QString());
    QCOMPARE(font.pointSize(), QFont().pointSize());
    QCOMPARE(MessageCapture::messages(),
             (QStringList{quoted(QStringLiteral("进行匹配的字符串: ") + spec),
                          quoted(QStringLiteral("尝试从文件结尾的类型判断: "))}));
}

void tst_FontRegistry::takesNoStyleWhenTheBarStandsFirst()
{
    addRecord("|Bold", "Foo-Italic Italic");
    const MessageCapture capture;
    const QFont font = fontregistry::fontFromSpec(QStringLiteral("|Bold"), 17);
    QVERIFY(font.styleName() != QStringLiteral("Bold"));
    QCOMPARE(font, QFontDatabase().font({}, QStringLiteral("Italic"), 17));
    QCOMPARE(MessageCapture::messages(),
             (QStringList{quoted(QStringLiteral("进行匹配的字符串: |Bold")),
                          quoted(QStringLiteral("尝试从文件结尾的类型判断: Italic"))}));
}

void tst_FontRegistry::aKeyTakesTheFontWithoutItsOldSize()
{
    const QByteArray bold = renamed(fontData("Roboto-Bold.ttf"), "Keykey");
    SKIP_WITHOUT(bold, "fonts-roboto-unhinted");
    loadFont(write(QStringLiteral("Keykey.ttf"), bold));
    normalAction key(nullptr, keyuuid::cpu, QStringLiteral("ctx"));
    key.font.setPointSize(21);
    key.setFontFromSpec(QStringLiteral("Keykey|Bold"));
    QCOMPARE(key.fontSpec, QStringLiteral("Keykey|Bold"));
    QCOMPARE(key.font.family(), QStringLiteral("Keykey"));
    QCOMPARE(key.font.styleName(), QStringLiteral("Bold"));
    QCOMPARE(key.font.pointSize(), 21);

    key.font.setPixelSize(77);
    key.setFontFromSpec(QStringLiteral("Nothing"));
    QCOMPARE(key.fontSpec, QStringLiteral("Nothing"));
    QCOMPARE(key.font.family(), QStringLiteral("Nothing"));
    QCOMPARE(key.font.pixelSize(), -1);
}

QTEST_MAIN(tst_FontRegistry)
#include "tst_fontregistry.moc"
