#include "fuzz/FuzzSupport.h"
#include "json/ParseJson.h"

#include <QJsonArray>
#include <QJsonObject>

// Any JSON. A document that was read and written again reads the same. As the value of a member
// whose name is repeated, an input is an error if it is one by itself, and is ignored otherwise.

namespace {

void repeatAsAMember(const QByteArray &value)
{
    const QByteArray alone = R"({"a":)" + value;
    const QJsonDocument expected = parseJson(alone + '}');
    const QJsonDocument repeated = parseJson(alone + R"(,"a":[1]})");
    fuzz::require(repeated.isNull() == expected.isNull());
    if (repeated.isNull())
        return;
    QJsonObject object = expected.object();
    object.insert(QLatin1String("a"), QJsonArray{1});
    fuzz::require(repeated.object() == object);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::silence();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray input = fuzz::bytesOf(data, size);
    repeatAsAMember(input);
    QJsonParseError error{};
    const QJsonDocument document = parseJson(input, &error);
    fuzz::require(document.isNull() == (error.error != QJsonParseError::NoError));
    const QByteArray written = document.toJson(QJsonDocument::Compact);
    fuzz::require(parseJson(written).toJson(QJsonDocument::Compact) == written);
    return 0;
}
