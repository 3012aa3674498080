#include "fuzz/FuzzSupport.h"
#include "render/FontRegistry.h"
#include "sensors/systemInfor.h"

#include <QFontDatabase>

// A font file that the host names.

namespace {

fuzz::ScratchFile *fontFile = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int * /*argc*/, char *** /*argv*/)
{
    fuzz::makeApplication();
    fontFile = new fuzz::ScratchFile(QStringLiteral("font.ttf"));
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    fontFile->write(fuzz::bytesOf(data, size));
    fontregistry::loadFont(fontFile->path());
    for (const FontRecord &record : qAsConst(systemInfor::fontlist_one))
        fontregistry::fontFromSpec(record.spec, -1);
    systemInfor::fontlist_one.clear();
    QFontDatabase::removeAllApplicationFonts();
    return 0;
}
