#include "deck_simulator/script/Script.h"
#include "fuzz/FuzzSupport.h"

#include <algorithm>

using namespace deck;

// A script that the simulator plays.

/// A script is read once, so it does not matter here that Qt never frees repeated members.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wreserved-identifier" // The name is the sanitizer's.
extern "C" const char *__asan_default_options()
{
    return "detect_leaks=0";
}
#pragma clang diagnostic pop

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const ParsedScript script = parseScript(fuzz::bytesOf(data, size));
    fuzz::require(script.steps.isEmpty() != script.error.isEmpty());
    fuzz::require(std::is_sorted(
        script.steps.begin(), script.steps.end(),
        [](const ScriptStep &left, const ScriptStep &right) { return left.at < right.at; }));
    for (const ScriptStep &step : script.steps)
        fuzz::require(step.at.count() >= 0 && (!step.title || step.title->isValid()));
    return 0;
}
