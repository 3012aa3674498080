#pragma once

#include "plugin/gauges/NumberText.h"
#include "plugin/gauges/ScaleRange.h"
#include "plugin/gauges/Thresholds.h"
#include "values/Reading.h"

#include <QString>

#include <optional>

class normalAction;

/// What gauges need to know of a kind of key. Numbers are in base units: °C, KB/s.
struct GaugeKind
{
    using Key = const normalAction &;
    /// The present reading of what a key selected.
    using Value = Reading<double> (*)(const QString &selection);
    /// A name of what \a key shows among what its kind has to offer.
    using Selection = QString (*)(Key key);
    /// The kind's own scale; nothing for one that follows the samples.
    using Scale = std::optional<ScaleRange> (*)();
    using Limits = Thresholds (*)();
    /// The short title of what \a key shows.
    using Title = QString (*)(Key key);

    Quantity quantity = Quantity::Plain;
    Digits digits = Digits::Whole;
    Value value = nullptr;
    Value second = nullptr; ///< Of a pair, whose first is the upload.
    Selection selection = nullptr;
    Scale scale = nullptr;
    Limits limits = nullptr;
    Title title = nullptr; ///< Where it depends on the key.
    QString chineseTitle;  ///< Short.
    QString englishTitle;

    GaugeKind &in(Quantity base);
    GaugeKind &with(Digits shown);
    GaugeKind &pairedWith(Value other);
    GaugeKind &selecting(Selection selected);
    GaugeKind &on(Scale own);
    GaugeKind &limitedBy(Limits own);
    GaugeKind &titled(const QString &chinese, const QString &english);
    GaugeKind &titledBy(Title own);

    bool isPair() const { return second; }
    /// In the current language.
    QString shortTitle(Key key) const;
};

/// A kind whose gauge shows \a value in whole units of its own.
GaugeKind gaugeOf(GaugeKind::Value value);
