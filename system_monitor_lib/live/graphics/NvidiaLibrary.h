#pragma once

#include <QString>

#include <memory>
#include <optional>

/// The readings of one NVIDIA GPU. Those that its driver does not support are absent.
struct NvidiaReadings
{
    QString name;
    QString place;
    std::optional<unsigned> celsius;
    std::optional<unsigned> clockMhz;
    std::optional<unsigned> memoryClockMhz;
    std::optional<unsigned> loadPercent;
    /// Of the connection to its memory.
    std::optional<unsigned> memoryPercent = {};
    std::optional<unsigned> decodePercent = {};
    std::optional<unsigned> encodePercent = {};
    std::optional<unsigned> fanPercent = {};
    std::optional<unsigned> linkLanes = {};
    std::optional<unsigned> linkGeneration = {};
    std::optional<unsigned> milliwatts;
    struct Memory
    {
        quint64 usedBytes = 0;
        quint64 totalBytes = 0;
    };
    std::optional<Memory> memory;
};

/// NVIDIA's management library while it is loaded and initialised. Its functions are declared here
/// according to its public reference; only those that exist in every release are required.
class NvidiaLibrary
{
public:
    /// Whether there is such a library, which is not initialised: that wakes no GPU.
    static bool canLoad(const QString &fileName);
    /// Null when the library is missing or lacks a required function, or when its driver does not
    /// answer.
    static std::unique_ptr<NvidiaLibrary> load(const QString &fileName);
    ~NvidiaLibrary();
    Q_DISABLE_COPY(NvidiaLibrary)

    /// The number of GPUs; nothing when the driver has gone.
    [[nodiscard]] std::optional<unsigned> count() const;
    /// Nothing when there is no such GPU or it is lost. It is held from then on.
    [[nodiscard]] std::optional<NvidiaReadings> read(unsigned index) const;
    /// The same by its place on the bus.
    [[nodiscard]] std::optional<NvidiaReadings> read(const QString &address) const;

private:
    class Private;
    explicit NvidiaLibrary(std::unique_ptr<Private> loaded);

    const std::unique_ptr<Private> d;
};
