#include "system_monitor_lib/live/processor/ProcessorGroups.h"

#include <windows.h>

namespace {

constexpr ULONG processorPerformance = 8;
constexpr int longest = 64 * 48;

/// NtQuerySystemInformation, and the form of it that takes a group.
using Query = LONG(NTAPI *)(ULONG topic, void *answer, ULONG answerSize, ULONG *size);
using QueryOfGroup = LONG(NTAPI *)(ULONG topic, void *group, ULONG groupSize, void *answer,
                                   ULONG answerSize, ULONG *size);

template <typename Function>
Function find(const char *name)
{
    return reinterpret_cast<Function>(
        reinterpret_cast<void (*)()>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), name)));
}

/// Empty when \a ask fails.
template <typename Ask>
QByteArray answerTo(Ask ask)
{
    QByteArray answer(longest, '\0');
    ULONG size = 0;
    if (ask(answer.data(), static_cast<ULONG>(answer.size()), &size) < 0)
        return {};
    answer.truncate(static_cast<int>(size));
    return answer;
}

std::vector<QByteArray> timesOfGroups(Query query, QueryOfGroup queryOfGroup)
{
    const WORD count = GetActiveProcessorGroupCount();
    std::vector<QByteArray> groups;
    // The only group is known to systems without the other form, too.
    if (count <= 1 && query)
        return {answerTo([&](void *answer, ULONG answerSize, ULONG *size) {
            return query(processorPerformance, answer, answerSize, size);
        })};
    for (USHORT group = 0; queryOfGroup && group < count; ++group)
        groups.push_back(answerTo([&](void *answer, ULONG answerSize, ULONG *size) {
            return queryOfGroup(processorPerformance, &group, sizeof(group), answer, answerSize,
                                size);
        }));
    return groups;
}

} // namespace

ProcessorGroups processorGroups()
{
    const auto query = find<Query>("NtQuerySystemInformation");
    const auto queryOfGroup = find<QueryOfGroup>("NtQuerySystemInformationEx");
    return [=] { return timesOfGroups(query, queryOfGroup); };
}
