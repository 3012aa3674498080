#include "tests/support/HostPage.h"
#include "tests/support/Json.h"
#include "tests/support/JsonPattern.h"

#include <QTemporaryDir>
#include <QtTest>

/// How a page's examples are read and compared.
class tst_JsonPattern : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void findsDifferences_data();
    void findsDifferences();
    void readsAPage();
    void readsNoPage();
};

void tst_JsonPattern::findsDifferences_data()
{
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("difference");
    const auto row = [](const char *name, const char *pattern, const char *value,
                        const char *difference) {
        QTest::newRow(name) << QString::fromUtf8(pattern) << QString::fromUtf8(value)
                            << QString::fromUtf8(difference);
    };
    row("the same", R"({"a": [1, "x", {"b": null}]})", R"({"a": [1, "x", {"b": null}]})", "");
    row("another text", R"({"a": {"b": "x"}})", R"({"a": {"b": "y"}})",
        R"(a b is "y" and not "x")");
    row("another number", R"({"a": [1, 2]})", R"({"a": [1, 3]})", "a [1] is 3 and not 2");
    row("a number for a text", R"({"a": "1"})", R"({"a": 1})", R"(a is 1 and not "1")");
    row("a member less", R"({"a": 1, "b": 2})", R"({"a": 1})", "b is missing");
    row("a member more", R"({"a": 1})", R"({"a": 1, "b": 2})", "b is one too many");
    row("an element less", R"({"a": [1, 2]})", R"({"a": [1]})", "a has 1 elements");
    row("an element more", R"({"a": [1]})", R"({"a": [1, 2]})", "a has 2 elements");
    row("any text", R"({"a": "…"})", R"({"a": "x\ny"})", "");
    row("any text is no number", R"({"a": "…"})", R"({"a": 1})", R"(a is 1 and not "…")");
    row("part of a text", R"({"a": "…% Used  …G"})", R"({"a": "7% Used  1G"})", "");
    row("another part of a text", R"({"a": "…%"})", R"({"a": "7°"})", R"(a is "7°" and not "…%")");
    row("signs of expressions", R"({"a": "a.c…"})", R"({"a": "abc"})",
        R"(a is "abc" and not "a.c…")");
    row("any number", R"({"a": "#"})", R"({"a": -1.5})", "");
    row("any number is no text", R"({"a": "#"})", R"({"a": "1"})", R"(a is "1" and not "#")");
    row("other members", R"({"a": 1, "…": "…"})", R"({"a": 1, "b": 2})", "");
    row("other members beside a wrong one", R"({"a": 1, "…": "…"})", R"({"a": 2, "b": 2})",
        "a is 2 and not 1");
    row("more elements", R"({"a": ["/…", "…"]})", R"({"a": ["/", "/home"]})", "");
    row("no elements", R"({"a": ["/…", "…"]})", R"({"a": []})", "");
    row("more elements of another form", R"({"a": ["/…", "…"]})", R"({"a": ["/", "home"]})",
        R"(a [1] is "home" and not "/…")");
    row("too few before more", R"({"a": [1, 2, "…"]})", R"({"a": []})", "a has 0 elements");
    row("any array", R"({"a": ["…"]})", R"({"a": [1, "x"]})", "");
    row("any array is no text", R"({"a": ["…"]})", R"({"a": "x"})", R"(a is "x" and not ["…"])");
}

void tst_JsonPattern::findsDifferences()
{
    QFETCH(const QString, pattern);
    QFETCH(const QString, value);
    QTEST(jsonpattern::difference(json(pattern.toUtf8()), json(value.toUtf8())), "difference");
}

void tst_JsonPattern::readsAPage()
{
    QTemporaryDir folder;
    const QString name = folder.filePath(QStringLiteral("page.md"));
    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("# One\n\n| a | b |\n|---|---|\n| `x\\|y`, `z` | 1 |\n\n```json kind option\n{\n"
               "| no | row |\n```\n## Two\n| c |\n|---|\n| 2 |\n```\nplain\n```\n");
    file.close();

    const HostPage page = HostPage::read(name);
    QCOMPARE(page.headings(), (QStringList{QStringLiteral("One"), QStringLiteral("Two")}));
    QCOMPARE(page.rows(QStringLiteral("a")).size(), 1);
    const QStringList row = page.rows(QStringLiteral("a")).constFirst();
    QCOMPARE(HostPage::code(row.value(0)),
             (QStringList{QStringLiteral("x|y"), QStringLiteral("z")}));
    QCOMPARE(row.value(1), QStringLiteral("1"));
    QCOMPARE(page.rows(QStringLiteral("c")).size(), 1);
    QCOMPARE(page.examples().size(), 2);
    const HostPage::Example example = page.examples().constFirst();
    QCOMPARE(example.kind, QStringLiteral("kind"));
    QCOMPARE(example.option, QStringLiteral("option"));
    QCOMPARE(example.text, QStringLiteral("{\n| no | row |\n"));
    QCOMPARE(example.line, 7);
    QCOMPARE(page.examples().at(1).kind, QString());
}

void tst_JsonPattern::readsNoPage()
{
    QVERIFY(HostPage::read(QStringLiteral("/no/such/page.md")).examples().isEmpty());
}

QTEST_APPLESS_MAIN(tst_JsonPattern)
#include "tst_jsonpattern.moc"
