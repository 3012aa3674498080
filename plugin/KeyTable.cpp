#include "plugin/KeyTable.h"

#include "render/normalAction.h"
#include "sensors/systemInfor.h"

#include <algorithm>
#include <iterator>

namespace {

using Info = systemInfor;

/// What a key shows. Only the network key has a second text.
struct KeyTexts
{
    QString first;
    QString second;
};

QString fixed(double value, int decimals)
{
    return QString::number(value, 'f', decimals);
}

QString megabytes(int value)
{
    return QString::number(value) + QStringLiteral("MB");
}

QString gigabytes(double value)
{
    return fixed(value, 1) + QStringLiteral("GB");
}

QString uploadRate()
{
    return fixed(Info::NetUpRate, 1) + Info::NetUpRateUnits;
}

QString downloadRate()
{
    return fixed(Info::NetDownRate, 1) + Info::NetDownRateUnits;
}

QString paintOneLine(normalAction &key, const KeyTexts &texts)
{
    return key.normalPainting(texts.first);
}

/// One line on request; else the two-line painter decides, which knows only its own setting.
QString paintNetwork(normalAction &key, const KeyTexts &texts)
{
    if (key.titleLines == QStringLiteral("单行显示"))
        return key.normalPainting(texts.first + QStringLiteral("  ") + texts.second);
    return key.paintingTwoLines(texts.first, texts.second);
}

struct KeyRow
{
    const char *uuid;
    KeyTexts (*texts)();
    QString (*paint)(normalAction &key, const KeyTexts &texts);
};

const KeyRow keyTable[] = {
    {"com.quellor.stream.system.memory",
     [] {
         return KeyTexts{QString::number(Info::MemoryLoad) + Info::MemoryLoadUnits, {}};
     },
     paintOneLine},
    {"com.quellor.stream.system.cpu",
     [] {
         return KeyTexts{QString::number(Info::CpuUsage) + Info::CpuUsageUnits, {}};
     },
     paintOneLine},
    {"com.quellor.stream.system.NetWork",
     [] {
         return KeyTexts{uploadRate(), downloadRate()};
     },
     paintNetwork},
    {"com.quellor.stream.system.Memory_Free_MB",
     [] {
         return KeyTexts{megabytes(Info::MemoryAvailableMB), {}};
     },
     paintOneLine},
    {"com.quellor.stream.system.Memory_Used_MB",
     [] {
         return KeyTexts{megabytes(Info::MemoryUsedMB), {}};
     },
     paintOneLine},
    {"com.quellor.stream.system.Memory_Total_MB",
     [] {
         return KeyTexts{megabytes(Info::MemoryTotalMB), {}};
     },
     paintOneLine},
    {"com.quellor.stream.system.Memory_Free_GB",
     [] {
         return KeyTexts{gigabytes(Info::MemoryAvailableGB), {}};
     },
     paintOneLine},
    {"com.quellor.stream.system.Memory_Used_GB",
     [] {
         return KeyTexts{gigabytes(Info::MemoryUsedGB), {}};
     },
     paintOneLine},
    {"com.quellor.stream.system.Memory_Total_GB",
     [] {
         return KeyTexts{gigabytes(Info::MemoryTotalGB), {}};
     },
     paintOneLine},
    {"com.quellor.stream.system.Memory_Model",
     [] {
         return KeyTexts{QString::number(Info::MemoryTotalGBRounded) + QStringLiteral("G"), {}};
     },
     paintOneLine},
    {"com.quellor.stream.system.NetWork.Upload",
     [] {
         return KeyTexts{uploadRate(), {}};
     },
     paintOneLine},
    {"com.quellor.stream.system.NetWork.Download",
     [] {
         return KeyTexts{downloadRate(), {}};
     },
     paintOneLine},
};

} // namespace

std::optional<QString> paintKey(normalAction &key)
{
    const QString uuid = key.GetAction();
    const auto row =
        std::find_if(std::begin(keyTable), std::end(keyTable), [&uuid](const KeyRow &candidate) {
            return uuid == QLatin1String(candidate.uuid);
        });
    if (row == std::end(keyTable))
        return std::nullopt;
    return row->paint(key, row->texts());
}
