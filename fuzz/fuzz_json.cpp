#include "fuzz/FuzzSupport.h"
#include "json/ParseJson.h"

#include <QJsonArray>
#include <QJsonObject>

// Any JSON. What is read, written again, reads the same.

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    QJsonParseError error{};
    const QJsonDocument document = parseJson(fuzz::bytesOf(data, size), &error);
    fuzz::require(document.isNull() == (error.error != QJsonParseError::NoError));
    const QByteArray written = document.toJson(QJsonDocument::Compact);
    fuzz::require(parseJson(written).toJson(QJsonDocument::Compact) == written);
    return 0;
}
