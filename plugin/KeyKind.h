#pragma once

#include "plugin/GaugeKind.h"
#include "plugin/SettingsOccasion.h"
#include "values/Reading.h"

#include <QString>

#include <optional>

class KeyPass;
class normalAction;
struct SettingsDraft;

/// One kind of key: what it shows, how it is painted, which selection it takes from its settings
/// and what it adds to the settings reply. It shows either a number with units, which a format
/// turns into text, or a text of its own.
class KeyKind
{
public:
    using Key = const normalAction &;
    using Value = Reading<double> (*)(Key key);
    using ValueInPass = Reading<double> (*)(Key key, KeyPass &pass);
    using Format = QString (*)(const Reading<double> &value);
    using Text = QString (*)(Key key);
    using Painter = QString (*)(normalAction &key, const QString &text);
    using Composer = void (*)(normalAction &key, const QString &text);
    using Selection = void (*)(normalAction &key, SettingsOccasion occasion);
    using ReplyPart = void (*)(SettingsDraft &draft);

    KeyKind(const QString &uuid, Value value, Format format);
    /// A kind whose keys pass something on to later keys of the same pass.
    KeyKind(const QString &uuid, ValueInPass value, Format format);
    KeyKind(const QString &uuid, Text text);

    /// Used instead of painting, and of composing, one line.
    KeyKind &paintedBy(Painter painter, Composer composer);
    /// A kind that gauges can show.
    KeyKind &gauging(const GaugeKind &gauge);
    KeyKind &selecting(Selection selection);
    KeyKind &replying(ReplyPart part);
    /// A kind whose keys show one drive, or the drives in turn.
    KeyKind &steppingThroughDrives();

    const QString &uuid() const { return m_uuid; }
    QString textOf(Key key, KeyPass &pass) const;
    /// Returns the picture as a data URL; empty where nothing is painted.
    QString paint(normalAction &key, const QString &text) const { return m_painter(key, text); }
    /// Gives \a key the line of text that paint() paints, without painting it.
    void compose(normalAction &key, const QString &text) const { m_composer(key, text); }
    /// Null for a kind without gauges.
    const GaugeKind *gauge() const { return m_gauge ? &*m_gauge : nullptr; }
    void select(normalAction &key, SettingsOccasion occasion) const;
    void addToReply(SettingsDraft &draft) const;
    bool stepsThroughDrives() const { return m_stepsThroughDrives; }

private:
    QString m_uuid;
    Value m_value = nullptr;
    ValueInPass m_valueInPass = nullptr;
    Format m_format = nullptr;
    Text m_text = nullptr;
    Painter m_painter;
    Composer m_composer;
    std::optional<GaugeKind> m_gauge;
    Selection m_selection = nullptr;
    ReplyPart m_replyPart = nullptr;
    bool m_stepsThroughDrives = false;
};
