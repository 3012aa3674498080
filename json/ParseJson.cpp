#include "json/ParseJson.h"

#include <QHash>
#include <QJsonArray>
#include <QString>
#include <QVector>

#include <algorithm>
#include <iterator>
#include <map>

namespace {

/// The framework rejects texts that are nested deeper.
constexpr int deepest = 1024;

/// From behind the mark before a member to behind its comma; \a end is 0 before that.
struct Member
{
    int begin = 0;
    int end = 0;
};

/// An object or array whose end has not come yet.
struct Level
{
    bool isObject = false;
    bool isAtName = false; ///< Whether a text that comes next is a name.
    int begin = 0;         ///< Of the present member.
    QString name;          ///< Of the present member.
    QHash<QString, Member> members;
};

QString nameIn(const QByteArray &literal)
{
    // Used as a whole, a byte array would end at a zero byte.
    if (!literal.contains('\\'))
        return QString::fromUtf8(literal.constData() + 1, literal.size() - 2);
    return QJsonDocument::fromJson('[' + literal + ']').array().at(0).toString();
}

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
/// is not JSON, so that the parser still finds the error: an invalid member is not blanked.
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
        m_levels.append({isObject, isObject, m_at + 1, {}, {}});
        return m_levels.size() <= deepest;
    }

    bool close(bool isObject)
    {
        const bool matches = !m_levels.isEmpty() && m_levels.constLast().isObject == isObject;
        if (matches)
            m_levels.removeLast();
        return matches;
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
        level.members[level.name].end = level.begin;
        level.isAtName = true;
        return true;
    }

    /// Goes to the text's closing mark.
    bool takeText()
    {
        const int begin = m_at++;
        while (m_at < m_text.size() && m_text.at(m_at) != '"')
            m_at += m_text.at(m_at) == '\\' ? 2 : 1;
        if (m_at >= m_text.size() || m_levels.isEmpty())
            return false;
        return !m_levels.constLast().isAtName || beginMember(m_text.mid(begin, m_at + 1 - begin));
    }

    bool beginMember(const QByteArray &name)
    {
        Level &level = m_levels.last();
        level.isAtName = false;
        level.name = nameIn(name);
        Member &member = level.members[level.name];
        if (member.end > 0 && !blank(member))
            return false;
        member = {level.begin, 0};
        return true;
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
