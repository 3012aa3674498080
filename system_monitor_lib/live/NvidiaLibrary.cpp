#include "system_monitor_lib/live/NvidiaLibrary.h"

#include <QLibrary>

#include <array>

namespace {

using Device = void *;

constexpr int success = 0;
constexpr int uninitialized = 1;
constexpr int driverNotLoaded = 9;
constexpr int gpuIsLost = 15;

constexpr int coreTemperature = 0;
constexpr int graphicsClock = 0;
constexpr int memoryClock = 2;

struct Utilization
{
    unsigned gpu;
    unsigned memory;
};

struct Memory
{
    unsigned long long total;
    unsigned long long free;
    unsigned long long used;
};
static_assert(sizeof(Memory) == 24);

template <typename Function>
void find(QLibrary &library, const char *name, Function &function)
{
    function = reinterpret_cast<Function>(library.resolve(name));
}

bool meansLost(int code)
{
    return code == gpuIsLost || code == uninitialized || code == driverNotLoaded;
}

/// Collects what the optional functions answer for one GPU.
class Questions
{
public:
    explicit Questions(Device device)
        : m_device(device)
    {
    }

    template <typename Result, typename Function, typename... Arguments>
    std::optional<Result> ask(Function function, Arguments... arguments)
    {
        Result result{};
        if (!function)
            return std::nullopt;
        const int code = function(m_device, arguments..., &result);
        m_lost = m_lost || meansLost(code);
        return code == success ? std::optional(result) : std::nullopt;
    }

    [[nodiscard]] bool isLost() const { return m_lost; }

private:
    Device m_device;
    bool m_lost = false;
};

} // namespace

class NvidiaLibrary::Private
{
public:
    explicit Private(const QString &fileName);
    ~Private() { library.unload(); }
    Q_DISABLE_COPY(Private)

    [[nodiscard]] bool isComplete() const
    {
        return init && shutdown && getCount && getHandle && getName;
    }

    QLibrary library;
    int (*init)() = nullptr;
    int (*shutdown)() = nullptr;
    int (*getCount)(unsigned *) = nullptr;
    int (*getHandle)(unsigned, Device *) = nullptr;
    int (*getName)(Device, char *, unsigned) = nullptr;
    int (*getTemperature)(Device, int, unsigned *) = nullptr;
    int (*getClock)(Device, int, unsigned *) = nullptr;
    int (*getUtilization)(Device, Utilization *) = nullptr;
    int (*getMemory)(Device, Memory *) = nullptr;
    int (*getPower)(Device, unsigned *) = nullptr;
};

NvidiaLibrary::Private::Private(const QString &fileName)
    : library(fileName)
{
    if (!library.load())
        return;
    find(library, "nvmlInit_v2", init);
    find(library, "nvmlShutdown", shutdown);
    find(library, "nvmlDeviceGetCount_v2", getCount);
    find(library, "nvmlDeviceGetHandleByIndex_v2", getHandle);
    find(library, "nvmlDeviceGetName", getName);
    find(library, "nvmlDeviceGetTemperature", getTemperature);
    find(library, "nvmlDeviceGetClockInfo", getClock);
    find(library, "nvmlDeviceGetUtilizationRates", getUtilization);
    find(library, "nvmlDeviceGetMemoryInfo", getMemory);
    find(library, "nvmlDeviceGetPowerUsage", getPower);
}

NvidiaLibrary::NvidiaLibrary(std::unique_ptr<Private> loaded)
    : d(std::move(loaded))
{
}

NvidiaLibrary::~NvidiaLibrary()
{
    d->shutdown();
}

std::unique_ptr<NvidiaLibrary> NvidiaLibrary::load(const QString &fileName)
{
    auto loaded = std::make_unique<Private>(fileName);
    if (!loaded->isComplete() || loaded->init() != success)
        return nullptr;
    return std::unique_ptr<NvidiaLibrary>(new NvidiaLibrary(std::move(loaded)));
}

std::optional<unsigned> NvidiaLibrary::count() const
{
    unsigned number = 0;
    return d->getCount(&number) == success ? std::optional(number) : std::nullopt;
}

QString NvidiaLibrary::name(unsigned index) const
{
    std::array<char, 96> text{};
    Device device = nullptr;
    if (d->getHandle(index, &device) != success ||
        d->getName(device, text.data(), static_cast<unsigned>(text.size() - 1)) != success)
        return {};
    return QString::fromUtf8(text.data()).simplified();
}

std::optional<NvidiaReadings> NvidiaLibrary::read(unsigned index) const
{
    Device device = nullptr;
    if (d->getHandle(index, &device) != success)
        return std::nullopt;
    Questions questions(device);
    NvidiaReadings readings;
    readings.celsius = questions.ask<unsigned>(d->getTemperature, coreTemperature);
    readings.clockMhz = questions.ask<unsigned>(d->getClock, graphicsClock);
    readings.memoryClockMhz = questions.ask<unsigned>(d->getClock, memoryClock);
    readings.milliwatts = questions.ask<unsigned>(d->getPower);
    if (const auto utilization = questions.ask<Utilization>(d->getUtilization))
        readings.loadPercent = utilization->gpu;
    if (const auto memory = questions.ask<Memory>(d->getMemory))
        readings.memory = NvidiaReadings::Memory{memory->used, memory->total};
    if (questions.isLost())
        return std::nullopt;
    return readings;
}
