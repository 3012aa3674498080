#include "json/ParseJson.h"

#include <QJsonArray>
#include <QString>
#include <QVector>

#include <algorithm>
#include <deque>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace {

/// The framework rejects texts that are nested deeper.
constexpr int deepest = 1024;

/// A name as the framework understands it, as UTF-8, or, where it has none, as the numbers of its
/// characters behind a mark that no other name contains. \a inside is what is between the marks.
std::string decoded(std::string_view inside)
{
    const QByteArray literal(inside.data(), static_cast<int>(inside.size()));
    const QString name = QJsonDocument::fromJson("[\"" + literal + "\"]").array().at(0).toString();
    const QByteArray utf8 = name.toUtf8();
    if (QString::fromUtf8(utf8) == name)
        return utf8.toStdString();
    std::string numbers = "\"";
    for (const QChar character : name)
        numbers += std::to_string(character.unicode()) + ' ';
    return numbers;
}

/// From behind the mark before a member to behind its comma; \a end is 0 before that.
struct Member
{
    std::string_view name;
    int begin = 0;
    int end = 0;
};

/// An object or array whose end has not come yet.
struct Level
{
    bool isObject = false;
    bool isAtName = false;       ///< Whether a text that comes next is a name.
    int begin = 0;               ///< Of the present member.
    std::size_t firstMember = 0; ///< Of an object's; they are the last ones of all members.
};

/// The parts of a text that count as blank. An added part is either separate from the others or
/// contains some of them.
class Blanks
{
public:
    void add(int begin, int end)
    {
        const auto next = m_ends.erase(m_ends.lower_bound(begin), m_ends.lower_bound(end));
        // Neighbours are merged, or many small ones would take more memory than the text.
        if (next != m_ends.begin() && std::prev(next)->second == begin)
            std::prev(next)->second = end;
        else
            m_ends.emplace_hint(next, begin, end);
    }

    /// The text between \a begin and \a end, without its blank parts.
    QByteArray rest(const QByteArray &text, int begin, int end) const
    {
        QByteArray result;
        for (auto part = m_ends.lower_bound(begin); part != m_ends.end() && part->first < end;
             ++part) {
            result.append(text.constData() + begin, part->first - begin);
            begin = part->second;
        }
        return result.append(text.constData() + begin, end - begin);
    }

    void fill(QByteArray &text) const
    {
        for (const auto &[begin, end] : m_ends)
            std::fill(text.begin() + begin, text.begin() + end, ' ');
    }

private:
    std::map<int, int> m_ends; ///< By their beginnings.
};

/// Blanks the members of a text whose name occurs again in the same object. It stops where the text
/// is not JSON, so that the parser still finds the error: an invalid member is not blanked. The
/// framework skips members where an object ends, so those of an object without an end may stay.
class RepeatedMembers
{
public:
    explicit RepeatedMembers(const QByteArray &text)
        : m_text(text)
    {
    }

    QByteArray blanked()
    {
        while (m_at < m_text.size() && takeCharacter(m_text.at(m_at)))
            ++m_at;
        QByteArray result = m_text;
        m_blanks.fill(result);
        return result;
    }

private:
    bool takeCharacter(char character)
    {
        switch (character) {
        case '{':
        case '[':
            return open(character == '{');
        case '}':
        case ']':
            return close(character == '}');
        case ',':
            return endMember();
        case '"':
            return takeText();
        default:
            return true;
        }
    }

    bool open(bool isObject)
    {
        m_levels.append({isObject, isObject, m_at + 1, m_members.size()});
        return m_levels.size() <= deepest;
    }

    bool close(bool isObject)
    {
        const bool matches = !m_levels.isEmpty() && m_levels.constLast().isObject == isObject;
        return matches && endLevel();
    }

    bool endMember()
    {
        if (m_levels.isEmpty())
            return false;
        Level &level = m_levels.last();
        if (!level.isObject)
            return true;
        if (level.isAtName)
            return false;
        level.begin = m_at + 1;
        m_members.back().end = level.begin;
        level.isAtName = true;
        return true;
    }

    /// Goes to the text's closing mark.
    bool takeText()
    {
        const int begin = ++m_at;
        bool isPlain = true;
        while (m_at < m_text.size() && m_text.at(m_at) != '"') {
            const bool isEscape = m_text.at(m_at) == '\\';
            isPlain = isPlain && !isEscape;
            m_at += isEscape ? 2 : 1;
        }
        if (m_at >= m_text.size() || m_levels.isEmpty())
            return false;
        Level &level = m_levels.last();
        if (level.isAtName) {
            level.isAtName = false;
            m_members.push_back({nameAt(begin, isPlain), level.begin, 0});
        }
        return true;
    }

    /// The name from \a begin to the present place.
    std::string_view nameAt(int begin, bool isPlain)
    {
        const std::string_view inside(m_text.constData() + begin,
                                      static_cast<std::size_t>(m_at - begin));
        return isPlain ? inside : m_decoded.emplace_back(decoded(inside));
    }

    /// False if the framework will find an error in a repeated member.
    bool endLevel()
    {
        const auto first =
            m_members.begin() + static_cast<std::ptrdiff_t>(m_levels.constLast().firstMember);
        // Of equal names, the one that counts comes last.
        std::sort(first, m_members.end(), [](const Member &a, const Member &b) {
            return std::tie(a.name, a.begin) < std::tie(b.name, b.begin);
        });
        bool isGood = true;
        for (auto member = first; member != m_members.end(); ++member) {
            const auto next = std::next(member);
            if (next != m_members.end() && next->name == member->name)
                isGood = isGood && blank(*member);
        }
        m_members.erase(first, m_members.end());
        m_levels.removeLast();
        return isGood;
    }

    /// Each character is parsed at most once: after that it is blank.
    bool blank(const Member &member)
    {
        const QByteArray inside = m_blanks.rest(m_text, member.begin, member.end - 1);
        if (QJsonDocument::fromJson('{' + inside + '}').isNull())
            return false;
        m_blanks.add(member.begin, member.end);
        return true;
    }

    const QByteArray m_text;
    Blanks m_blanks;
    QVector<Level> m_levels;
    std::vector<Member> m_members; ///< Of all levels that are open.
    std::deque<std::string> m_decoded;
    int m_at = 0;
};

bool isBlank(char character)
{
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

/// The position in \a text of the error at \a offset of \a blanked. The framework reports the first
/// letter after the invalid mark, and only there skips blanks.
int offsetIn(const QByteArray &text, const QByteArray &blanked, int offset)
{
    if (offset > text.size()) // A fault at the end may lie beyond it.
        return offset;
    int place = offset;
    while (place > 0 && isBlank(blanked.at(place - 1)))
        --place;
    while (place < offset && isBlank(text.at(place)))
        ++place;
    return place;
}

} // namespace

QJsonDocument parseJson(const QByteArray &text, QJsonParseError *error)
{
    const QByteArray blanked = RepeatedMembers(text).blanked();
    QJsonParseError fault{};
    QJsonDocument document = QJsonDocument::fromJson(blanked, &fault);
    if (error) {
        *error = fault;
        if (fault.error != QJsonParseError::NoError)
            error->offset = offsetIn(text, blanked, fault.offset);
    }
    return document;
}
