#include "json/ParseJson.h"

#include <QHash>
#include <QJsonArray>
#include <QString>
#include <QVector>

#include <algorithm>

namespace {

/// The framework refuses texts that are nested deeper.
constexpr int deepest = 1024;

/// From a member's name to behind its comma; \a end is 0 before that.
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
    QString name;          ///< Of the present member.
    QHash<QString, Member> members;
};

QString nameIn(const QByteArray &literal)
{
    if (!literal.contains('\\'))
        return QString::fromUtf8(literal.mid(1, literal.size() - 2));
    return QJsonDocument::fromJson('[' + literal + ']').array().at(0).toString();
}

/// Blanks the members of a text whose name comes again in the same object. It leaves off where the
/// text is no JSON: so does whoever reads it.
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
        return m_text;
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
        m_levels.append({isObject, isObject, {}, {}});
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
        level.members[level.name].end = m_at + 1;
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
        if (m_levels.constLast().isAtName)
            beginMember(begin);
        return true;
    }

    void beginMember(int begin)
    {
        Level &level = m_levels.last();
        level.isAtName = false;
        level.name = nameIn(m_text.mid(begin, m_at + 1 - begin));
        Member &member = level.members[level.name];
        if (member.end > 0)
            std::fill(m_text.begin() + member.begin, m_text.begin() + member.end, ' ');
        member = {begin, 0};
    }

    QByteArray m_text;
    QVector<Level> m_levels;
    int m_at = 0;
};

} // namespace

QJsonDocument parseJson(const QByteArray &text, QJsonParseError *error)
{
    return QJsonDocument::fromJson(RepeatedMembers(text).blanked(), error);
}
