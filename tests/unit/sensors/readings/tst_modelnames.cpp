#include "sensors/readings/ModelNames.h"

#include <QJsonDocument>
#include <QtTest>

class tst_ModelNames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void takesModelNames_data();
    void takesModelNames();
    void keepsKnownModelNames();

private:
    static QJsonObject object(const QByteArray &json)
    {
        return QJsonDocument::fromJson(json).object();
    }
};

void tst_ModelNames::takesModelNames_data()
{
    QTest::addColumn<QByteArray>("groups");
    QTest::addColumn<QString>("cpu");
    QTest::addColumn<QString>("gpu");
    const auto row = [](const char *name, const char *groups, const char *cpu, const char *gpu) {
        QTest::newRow(name) << QByteArray(groups) << QString::fromLatin1(cpu)
                            << QString::fromLatin1(gpu);
    };
    row("both", R"({"CPU [#0]: Ryzen":{},"GPU [#0]: Radeon":{}})", "Ryzen", "Radeon");
    row("no GPU", R"({"CPU [#0]: Ryzen":{}})", "Ryzen", "integrated GPU");
    row("nothing", "{}", "", "integrated GPU");
    row("no separator", R"({"CPU [#0]":{},"GPU:x":{}})", "", "integrated GPU");
    row("letter case counts", R"({"cpu [#0]: x":{},"gpu [#0]: y":{}})", "", "integrated GPU");
    row("second part only", R"({"CPU [#0]: a: b":{}})", "a", "integrated GPU");
    row("a later group replaces while the other is missing",
        R"({"CPU [#0]: first":{},"CPU [#1]: second":{},"GPU [#0]: y":{}})", "second", "y");
    row("no longer once both are known", R"({"CPU [#0]: x":{},"GPU [#0]: y":{},"GPU [#1]: z":{}})",
        "x", "y");
    row("one group for both", R"({"CPU and GPU: x":{}})", "x", "x");
}

void tst_ModelNames::takesModelNames()
{
    QFETCH(QByteArray, groups);
    const ModelNames names = modelNames(object(groups), {});
    QTEST(names.cpu, "cpu");
    QTEST(names.gpu, "gpu");
}

void tst_ModelNames::keepsKnownModelNames()
{
    const ModelNames names = modelNames(object(R"({"CPU [#0]: x":{},"GPU [#0]: y":{}})"),
                                        {QStringLiteral("known CPU"), QStringLiteral("known GPU")});
    QCOMPARE(names.cpu, QStringLiteral("known CPU"));
    QCOMPARE(names.gpu, QStringLiteral("known GPU"));
}

QTEST_APPLESS_MAIN(tst_ModelNames)
#include "tst_modelnames.moc"
