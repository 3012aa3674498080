#include "system_monitor_lib/live/graphics/NvidiaLibrary.h"

#include <QLibrary>

#include <array>

namespace {

using Device = void *;

constexpr int success = 0;
constexpr int uninitialized = 1;
constexpr int notSupported = 3;
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

/// Collects the results of the optional functions for one GPU.
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

    /// Of a load that is also answered with the period, in microseconds, over which it is the mean.
    std::optional<unsigned> askWithPeriod(int (*function)(Device, unsigned *, unsigned *))
    {
        unsigned load = 0;
        unsigned period = 0;
        const int code = function ? function(m_device, &load, &period) : notSupported;
        m_lost = m_lost || meansLost(code);
        return code == success ? std::optional(load) : std::nullopt;
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
        return init && shutdown && getCount && getHandle && getHandleByAddress && getName;
    }
    /// Empty when the GPU does not answer.
    QString name(Device device) const;
    /// Nothing when the GPU is lost.
    std::optional<NvidiaReadings> read(Device device) const;

    QLibrary library;
    int (*init)() = nullptr;
    int (*shutdown)() = nullptr;
    int (*getCount)(unsigned *) = nullptr;
    int (*getHandle)(unsigned, Device *) = nullptr;
    int (*getHandleByAddress)(const char *, Device *) = nullptr;
    int (*getName)(Device, char *, unsigned) = nullptr;
    int (*getTemperature)(Device, int, unsigned *) = nullptr;
    int (*getClock)(Device, int, unsigned *) = nullptr;
    int (*getUtilization)(Device, Utilization *) = nullptr;
    int (*getMemory)(Device, Memory *) = nullptr;
    int (*getPower)(Device, unsigned *) = nullptr;
    int (*getDecoder)(Device, unsigned *, unsigned *) = nullptr;
    int (*getEncoder)(Device, unsigned *, unsigned *) = nullptr;
    int (*getFan)(Device, unsigned *) = nullptr;
    int (*getLinkWidth)(Device, unsigned *) = nullptr;
    int (*getLinkGeneration)(Device, unsigned *) = nullptr;
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
    find(library, "nvmlDeviceGetHandleByPciBusId_v2", getHandleByAddress);
    find(library, "nvmlDeviceGetName", getName);
    find(library, "nvmlDeviceGetTemperature", getTemperature);
    find(library, "nvmlDeviceGetClockInfo", getClock);
    find(library, "nvmlDeviceGetUtilizationRates", getUtilization);
    find(library, "nvmlDeviceGetMemoryInfo", getMemory);
    find(library, "nvmlDeviceGetPowerUsage", getPower);
    find(library, "nvmlDeviceGetDecoderUtilization", getDecoder);
    find(library, "nvmlDeviceGetEncoderUtilization", getEncoder);
    find(library, "nvmlDeviceGetFanSpeed", getFan);
    find(library, "nvmlDeviceGetCurrPcieLinkWidth", getLinkWidth);
    find(library, "nvmlDeviceGetCurrPcieLinkGeneration", getLinkGeneration);
}

QString NvidiaLibrary::Private::name(Device device) const
{
    std::array<char, 96> text{};
    if (getName(device, text.data(), static_cast<unsigned>(text.size() - 1)) != success)
        return {};
    return QString::fromUtf8(text.data()).simplified();
}

std::optional<NvidiaReadings> NvidiaLibrary::Private::read(Device device) const
{
    NvidiaReadings readings;
    readings.name = name(device);
    if (readings.name.isEmpty())
        return std::nullopt;
    Questions questions(device);
    readings.celsius = questions.ask<unsigned>(getTemperature, coreTemperature);
    readings.clockMhz = questions.ask<unsigned>(getClock, graphicsClock);
    readings.memoryClockMhz = questions.ask<unsigned>(getClock, memoryClock);
    readings.milliwatts = questions.ask<unsigned>(getPower);
    if (const auto utilization = questions.ask<Utilization>(getUtilization)) {
        readings.loadPercent = utilization->gpu;
        readings.memoryPercent = utilization->memory;
    }
    readings.decodePercent = questions.askWithPeriod(getDecoder);
    readings.encodePercent = questions.askWithPeriod(getEncoder);
    readings.fanPercent = questions.ask<unsigned>(getFan);
    readings.linkLanes = questions.ask<unsigned>(getLinkWidth);
    readings.linkGeneration = questions.ask<unsigned>(getLinkGeneration);
    if (const auto memory = questions.ask<Memory>(getMemory))
        readings.memory = NvidiaReadings::Memory{memory->used, memory->total};
    if (questions.isLost())
        return std::nullopt;
    return readings;
}

NvidiaLibrary::NvidiaLibrary(std::unique_ptr<Private> loaded)
    : d(std::move(loaded))
{
}

NvidiaLibrary::~NvidiaLibrary()
{
    d->shutdown();
}

bool NvidiaLibrary::canLoad(const QString &fileName)
{
    QLibrary library(fileName);
    const bool loads = !fileName.isEmpty() && library.load();
    library.unload();
    return loads;
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

std::optional<NvidiaReadings> NvidiaLibrary::read(unsigned index) const
{
    Device device = nullptr;
    return d->getHandle(index, &device) == success ? d->read(device) : std::nullopt;
}

std::optional<NvidiaReadings> NvidiaLibrary::read(const QString &address) const
{
    Device device = nullptr;
    return d->getHandleByAddress(address.toLatin1().constData(), &device) == success
               ? d->read(device)
               : std::nullopt;
}
