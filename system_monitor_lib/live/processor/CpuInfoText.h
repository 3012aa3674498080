#pragma once

#include <QString>

#include <map>
#include <string_view>

/// The name of the processor from /proc/cpuinfo, with repeated blanks merged: "model name" (x86,
/// older ARM; in another letter case LoongArch), "cpu" (POWER), "cpu model" (MIPS), "uarch"
/// (RISC-V), else what boards call "Hardware" or "Model". Empty when there is none.
QString parseCpuModel(std::string_view text);

/// The clocks from /proc/cpuinfo ("cpu MHz") by number of the processor ("processor"). Only some
/// architectures have them.
std::map<int, double> parseCpuClocks(std::string_view text);

/// Whether these clocks can change. Without the counters of its cycles ("aperfmperf" among "flags")
/// and without cpufreq, an x86 processor has the clock that was measured when it started, as in
/// most virtual machines (arch_freq_get_on_cpu() in arch/x86/kernel/cpu/aperfmperf.c of Linux).
bool hasChangingClocks(std::string_view text);

/// Whether a processor can run at \a megahertz.
bool isPlausibleClock(double megahertz);
