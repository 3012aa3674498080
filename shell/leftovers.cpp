#include "shell/leftovers.h"

#include "SDK/Logger/Logger.h"

namespace {

using processes::Process;

void endProcesses(const QString &name, const leftovers::System &system)
{
    const auto found = system.snapshot();
    if (!found) {
        LogDebug(QStringLiteral("无法创建进程快照！"));
        return;
    }
    const qint64 ownId = system.ownId();
    for (const Process &process : *found) {
        // Compatibility: letter-case-of-names
        if (process.id == ownId || process.executableName.compare(name, Qt::CaseInsensitive) != 0)
            continue;
        const char *const outcome =
            system.terminate(process) ? "已终止进程 ID:" : "无法打开进程 ID:";
        LogDebug(labelled(outcome, QString::number(process.id)));
    }
}

} // namespace

void leftovers::end(const System &system)
{
    const QString name = system.ownExecutableName();
    if (name.isEmpty()) {
        LogDebug(QStringLiteral("无法获取当前进程名。"));
        LogDebug(QStringLiteral("Get currentProcessName Failed, Exit"));
        return;
    }
    LogDebug(labelled("当前进程名:", name));
    endProcesses(name, system);
    LogDebug(QStringLiteral("已终止所有同名进程。"));
}
