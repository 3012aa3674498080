#include "deck_simulator/script/Script.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <optional>

namespace deck {

namespace {

using Kind = ScriptStep::Kind;

constexpr double latest = 24.0 * 60 * 60; // seconds
constexpr int mostFaults = 10;

struct Verb
{
    const char *name;
    Kind kind;
    bool hasKey;
};

const Verb verbs[] = {
    {"put", Kind::Put, true},
    {"remove", Kind::Remove, true},
    {"move", Kind::Move, true},
    {"settings", Kind::Settings, true},
    {"press", Kind::Press, true},
    {"rotate", Kind::Rotate, true},
    {"send", Kind::Send, false},
    {"servicePort", Kind::ServicePort, false},
    {"hostDies", Kind::HostDies, false},
    {"machine", Kind::Machine, false},
    {"expect", Kind::Expect, true},
    {"snapshot", Kind::Snapshot, false},
};

const Verb *findVerb(const QString &name)
{
    const auto *const found =
        std::find_if(std::begin(verbs), std::end(verbs),
                     [&](const Verb &verb) { return name == QLatin1String(verb.name); });
    return found == std::end(verbs) ? nullptr : found;
}

// Reads the members of one line and remembers the first error.
class StepReader
{
public:
    explicit StepReader(const QJsonObject &object)
        : m_object(object)
    {
    }

    [[nodiscard]] bool has(const char *name) const
    {
        return m_object.contains(QLatin1String(name));
    }

    std::chrono::milliseconds time(const char *name)
    {
        const double seconds = m_object.value(QLatin1String(name)).toDouble(-1);
        if (!(seconds >= 0 && seconds <= latest))
            complain(
                QStringLiteral("\"%1\" must be seconds, at most a day's").arg(QLatin1String(name)));
        return std::chrono::milliseconds(qRound64(qBound(0.0, seconds, latest) * 1000));
    }

    QString text(const char *name)
    {
        QString value = m_object.value(QLatin1String(name)).toString();
        if (value.isEmpty())
            complain(QStringLiteral("\"%1\" must be a text").arg(QLatin1String(name)));
        return value;
    }

    QJsonObject object(const char *name)
    {
        const QJsonValue value = m_object.value(QLatin1String(name));
        if (!value.isObject())
            complain(QStringLiteral("\"%1\" must be an object").arg(QLatin1String(name)));
        return value.toObject();
    }

    DeckPlace place(const char *name)
    {
        const QJsonValue value = m_object.value(QLatin1String(name));
        const int dial = value.toObject().value(QLatin1String("dial")).toInt(-1);
        if (dial >= 0)
            return {dial, 0, true};
        const QJsonArray pair = value.toArray();
        const DeckPlace place{pair.at(0).toInt(-1), pair.at(1).toInt(-1)};
        if (pair.size() != 2 || place.column < 0 || place.row < 0)
            complain(QStringLiteral("\"%1\" must be [COLUMN, ROW] or {\"dial\": NUMBER}")
                         .arg(QLatin1String(name)));
        return place;
    }

    QRegularExpression pattern(const char *name)
    {
        QRegularExpression pattern(text(name));
        if (!pattern.isValid())
            complain(QStringLiteral("\"%1\" is no regular expression: %2")
                         .arg(QLatin1String(name), pattern.errorString()));
        return pattern;
    }

    QColor color(const char *name)
    {
        QColor color(text(name));
        if (!color.isValid())
            complain(QStringLiteral("\"%1\" is no colour").arg(QLatin1String(name)));
        return color;
    }

    QSize size(const char *name)
    {
        const QJsonArray pair = m_object.value(QLatin1String(name)).toArray();
        const QSize size(pair.at(0).toInt(), pair.at(1).toInt());
        if (pair.size() != 2 || size.isEmpty())
            complain(QStringLiteral("\"%1\" must be [WIDTH, HEIGHT]").arg(QLatin1String(name)));
        return size;
    }

    int integer(const char *name)
    {
        const QJsonValue value = m_object.value(QLatin1String(name));
        if (!value.isDouble() || value.toInt(0) != value.toInt(1))
            complain(QStringLiteral("\"%1\" must be a whole number").arg(QLatin1String(name)));
        return value.toInt();
    }

    [[nodiscard]] QJsonValue value(const char *name) const
    {
        return m_object.value(QLatin1String(name));
    }

    [[nodiscard]] bool flag(const char *name) const
    {
        return m_object.value(QLatin1String(name)).toBool();
    }

    void complain(const QString &complaint)
    {
        if (m_error.isEmpty())
            m_error = complaint;
    }

    [[nodiscard]] const QString &error() const { return m_error; }

private:
    QJsonObject m_object;
    QString m_error;
};

void readMembers(StepReader &reader, ScriptStep &step)
{
    switch (step.kind) {
    case Kind::Put:
        step.action = reader.text("action");
        if (reader.has("set"))
            step.object = reader.object("set");
        step.display = reader.value("display");
        break;
    case Kind::Move:
        step.to = reader.place("to");
        break;
    case Kind::Settings:
        step.display = reader.value("display");
        if (reader.has("set") || step.display.isUndefined())
            step.object = reader.object("set");
        break;
    case Kind::Press:
        if (reader.has("hold"))
            step.hold = reader.time("hold");
        break;
    case Kind::Rotate:
        step.ticks = reader.integer("ticks");
        step.pressed = reader.flag("pressed");
        break;
    case Kind::Send:
        step.object = reader.object("message");
        break;
    case Kind::Expect:
        if (reader.has("title"))
            step.title = reader.pattern("title");
        if (reader.has("color"))
            step.color = reader.color("color");
        if (reader.has("size"))
            step.pictureSize = reader.size("size");
        if (reader.has("within"))
            step.within = reader.time("within");
        break;
    case Kind::Machine:
    case Kind::Snapshot:
        step.file = reader.text("file");
        break;
    case Kind::Remove:
    case Kind::ServicePort:
    case Kind::HostDies:
        break;
    }
}

// An error message, or an empty text.
QString readStep(const QByteArray &line, std::chrono::milliseconds before, ScriptStep &step)
{
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(line, &error);
    if (!document.isObject())
        return error.error == QJsonParseError::NoError ? QStringLiteral("it is no JSON object")
                                                       : error.errorString();
    StepReader reader(document.object());
    const QString name = reader.text("do");
    const Verb *verb = findVerb(name);
    if (verb == nullptr)
        return QStringLiteral("\"do\" names nothing that can be done: \"%1\"").arg(name);
    step.kind = verb->kind;
    step.at = reader.has("at") ? reader.time("at") : before;
    if (verb->hasKey)
        step.place = reader.place("key");
    readMembers(reader, step);
    return reader.error();
}

} // namespace

ParsedScript parseScript(const QByteArray &text)
{
    ParsedScript script;
    QStringList faults;
    std::chrono::milliseconds before(0);
    const QList<QByteArray> lines = text.split('\n');
    for (int index = 0; index < lines.size() && faults.size() < mostFaults; ++index) {
        const QByteArray line = lines.at(index).trimmed();
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        ScriptStep step;
        step.line = index + 1;
        const QString fault = readStep(line, before, step);
        if (!fault.isEmpty())
            faults.append(QStringLiteral("line %1: %2").arg(step.line).arg(fault));
        before = step.at;
        script.steps.append(step);
    }
    std::stable_sort(
        script.steps.begin(), script.steps.end(),
        [](const ScriptStep &left, const ScriptStep &right) { return left.at < right.at; });
    script.error = faults.join(QLatin1Char('\n'));
    if (!script.error.isEmpty())
        script.steps.clear();
    else if (script.steps.isEmpty())
        script.error = QStringLiteral("it has no steps");
    return script;
}

} // namespace deck
