#include "render/FontTables.h"

#include <QtEndian>

namespace fonttables {

namespace {

// The sizes and places of the OpenType specification, "Font File" and "name - Naming Table".
constexpr quint32 collectionTag = 0x74746366; // "ttcf"
constexpr quint32 nameTag = 0x6e616d65;       // "name"
constexpr qint64 collectionHead = 12;
constexpr qint64 mostFonts = 1024; // far more than a collection has
constexpr qint64 fontHead = 12;
constexpr qint64 tableRecord = 16;
constexpr qint64 nameHead = 6;
constexpr qint64 nameRecord = 12;

/// What lies behind the end reads as 0; has() tells.
class File
{
public:
    File(const uchar *begin, qint64 size)
        : m_begin(begin)
        , m_size(size)
    {
    }

    bool has(qint64 at, qint64 bytes) const { return at <= m_size && bytes <= m_size - at; }

    qint64 word(qint64 at) const
    {
        return has(at, 2) ? qint64(qFromBigEndian<quint16>(m_begin + at)) : 0;
    }
    qint64 longWord(qint64 at) const
    {
        return has(at, 4) ? qint64(qFromBigEndian<quint32>(m_begin + at)) : 0;
    }

private:
    const uchar *m_begin;
    qint64 m_size;
};

bool namesAreWithin(const File &file, qint64 table)
{
    const qint64 count = file.word(table + 2);
    const qint64 texts = table + file.word(table + 4);
    if (!file.has(table, nameHead + count * nameRecord))
        return false;
    for (qint64 name = 0; name < count; ++name) {
        const qint64 record = table + nameHead + name * nameRecord;
        if (!file.has(texts + file.word(record + 10), file.word(record + 8)))
            return false;
    }
    return true;
}

bool fontIsWithin(const File &file, qint64 font)
{
    const qint64 count = file.word(font + 4);
    if (!file.has(font, fontHead + count * tableRecord))
        return false;
    for (qint64 table = 0; table < count; ++table) {
        const qint64 record = font + fontHead + table * tableRecord;
        const qint64 begin = file.longWord(record + 8);
        if (!file.has(begin, file.longWord(record + 12)))
            return false;
        if (file.longWord(record) == nameTag && !namesAreWithin(file, begin))
            return false;
    }
    return true;
}

} // namespace

bool areWithin(const uchar *file, qint64 size)
{
    const File content(file, size);
    if (content.longWord(0) != collectionTag)
        return fontIsWithin(content, 0);
    const qint64 fonts = content.longWord(8);
    if (fonts > mostFonts || !content.has(collectionHead, fonts * 4))
        return false;
    for (qint64 font = 0; font < fonts; ++font) {
        if (!fontIsWithin(content, content.longWord(collectionHead + font * 4)))
            return false;
    }
    return true;
}

} // namespace fonttables
