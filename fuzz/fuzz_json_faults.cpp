#include "fuzz/FuzzSupport.h"
#include "json/ParseJson.h"

// Any JSON is read as Qt itself reads it, with the same errors at the same offsets. Qt never frees
// repeated members; leaks of our own reader are found by the target json.

namespace {

/// So that what Qt leaks does not use up the memory in a long run.
constexpr int longest = 128;

void compare(const QByteArray &text)
{
    QJsonParseError error{};
    QJsonParseError expected{};
    const QJsonDocument document = parseJson(text, &error);
    fuzz::require(document == QJsonDocument::fromJson(text, &expected));
    fuzz::require(error.error == expected.error);
    fuzz::require(error.offset == expected.offset);
}

} // namespace

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
    const QByteArray input = fuzz::bytesOf(data, size).left(longest);
    compare(input);
    // Otherwise a whole document would be leaked each time.
    if (parseJson(input).isNull())
        compare(R"({"a":)" + input + R"(,"a":[1]})");
    return 0;
}
