#include "SDK/HostMessages.h"
#include "bench/BenchDeck.h"
#include "bench/PlainQt.h"
#include "plugin/KeyGauges.h"
#include "plugin/KeyPass.h"
#include "render/ActionUuids.h"
#include "render/KeyPicture.h"
#include "render/PngEncoder.h"
#include "render/ShapedLine.h"
#include "render/normalAction.h"
#include "sensors/VqSystemMonitorLib.h"
#include "sensors/readings/SensorRefresh.h"
#include "tests/support/InMemoryLibrary.h"

#include <QFontMetrics>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <vector>

/// The parts of the work on a key, each over the keys of a large deck; "plain" is the same part in
/// plain Qt. The times are those of the whole deck.
namespace {

struct Painted
{
    plainqt::Key key;
    QString text;
    QImage image;
    QByteArray png;
    QByteArray plainPng;
    QString dataUrl;
};

Painted painted(const BenchKey &spec)
{
    normalAction action(nullptr, spec.action, spec.context);
    action.applySettings(spec.payload);
    KeyGauges gauges;
    KeyPass pass(gauges, 0);
    const QString url = pass.paint(action).value_or(QString());
    const plainqt::Key key{spec.action, spec.context, action.font, action.color, action.opacity};
    return {key,
            action.displayedText,
            action.keyImage,
            encodedPng(action.keyImage),
            plainqt::encode(action.keyImage),
            url};
}

const std::vector<Painted> &deck()
{
    static const std::vector<Painted> all = [] {
        std::vector<Painted> pictures;
        for (const BenchKey &key : benchDeck(largeDeck))
            pictures.push_back(painted(key));
        return pictures;
    }();
    return all;
}

template <typename Work>
void overDeck(benchmark::State &state, Work work)
{
    for (auto _ : state) {
        for (const Painted &each : deck())
            benchmark::DoNotOptimize(work(each));
    }
    state.SetItemsProcessed(state.iterations() * largeDeck);
}

void refresh(benchmark::State &state)
{
    VqSystemMonitorLib library(false, nullptr);
    for (auto _ : state)
        refreshSystemInfor(&library, 0);
}
BENCHMARK(refresh)->Unit(benchmark::kMicrosecond);

/// A network key whose settings name neither one line nor two gets its text but is not painted.
void text(benchmark::State &state)
{
    normalAction key(nullptr, actionuuid::netWork, QStringLiteral("context"));
    key.titleLines.clear();
    KeyGauges gauges;
    KeyPass pass(gauges, 0);
    for (auto _ : state) {
        for (int number = 0; number < largeDeck; ++number)
            benchmark::DoNotOptimize(pass.paint(key));
    }
    state.SetItemsProcessed(state.iterations() * largeDeck);
}
BENCHMARK(text)->Unit(benchmark::kMicrosecond);

void metricsAndPaint(benchmark::State &state)
{
    overDeck(state, [](const Painted &each) {
        const int height = QFontMetrics(each.key.font).height();
        const QStringList texts = each.text.split(QLatin1Char('\n'));
        const ShapedLine first(texts.first(), each.key.font);
        const ShapedLine second(texts.value(1), each.key.font);
        const QSize size(std::max(first.width(), second.width()), height * texts.size());
        return paintPicture(
            size,
            {{QRect(0, 0, first.width(), height), &first},
             {QRect(0, height, second.width(), height), &second}},
            {each.key.font, each.key.color, 1.0 - each.key.opacity, Qt::AlignCenter});
    });
}
BENCHMARK(metricsAndPaint)->Name("paint")->Unit(benchmark::kMicrosecond);

void plainPaint(benchmark::State &state)
{
    overDeck(state, [](const Painted &each) { return plainqt::paint(each.key, each.text); });
}
BENCHMARK(plainPaint)->Name("paint/plain")->Unit(benchmark::kMicrosecond);

void encode(benchmark::State &state)
{
    overDeck(state, [](const Painted &each) { return encodedPng(each.image); });
}
BENCHMARK(encode)->Unit(benchmark::kMicrosecond);

void plainEncode(benchmark::State &state)
{
    overDeck(state, [](const Painted &each) { return plainqt::encode(each.image); });
}
BENCHMARK(plainEncode)->Name("encode/plain")->Unit(benchmark::kMicrosecond);

void base64(benchmark::State &state)
{
    overDeck(state, [](const Painted &each) { return plainqt::dataUrl(each.png); });
}
BENCHMARK(base64)->Unit(benchmark::kMicrosecond);

void plainBase64(benchmark::State &state)
{
    overDeck(state, [](const Painted &each) { return plainqt::dataUrl(each.plainPng); });
}
BENCHMARK(plainBase64)->Name("base64/plain")->Unit(benchmark::kMicrosecond);

void message(benchmark::State &state)
{
    overDeck(state, [](const Painted &each) {
        return hostmessages::setImage(each.dataUrl, each.key.context, 0, -1);
    });
}
BENCHMARK(message)->Unit(benchmark::kMicrosecond);

void plainMessage(benchmark::State &state)
{
    std::vector<QString> urls;
    for (const Painted &each : deck())
        urls.push_back(plainqt::dataUrl(each.plainPng));
    std::size_t number = 0;
    overDeck(state, [&](const Painted &each) {
        return plainqt::imageMessage(each.key.context, urls.at(number++ % urls.size()));
    });
}
BENCHMARK(plainMessage)->Name("message/plain")->Unit(benchmark::kMicrosecond);

} // namespace
