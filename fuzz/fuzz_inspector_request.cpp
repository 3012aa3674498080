#include "fuzz/FuzzSupport.h"
#include "inspector_server/RequestTable.h"

#include <QJsonDocument>
#include <QStringList>

// Requests of a settings panel to the data server, one per line.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    fuzz::takeDesktopReadings();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    for (const QString &request : fuzz::textOf(data, size).split(QLatin1Char('\n'))) {
        const QJsonObject reply = answerRequest(request);
        fuzz::require(reply.isEmpty() || reply.value(QLatin1String("event")) == request);
        fuzz::require(!QJsonDocument(reply).toJson(QJsonDocument::Compact).isEmpty());
    }
    return 0;
}
