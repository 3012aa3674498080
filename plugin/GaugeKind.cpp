#include "plugin/GaugeKind.h"

#include "SDK/LanguageUtilities.h"

GaugeKind gaugeOf(GaugeKind::Value value)
{
    GaugeKind kind;
    kind.value = value;
    return kind;
}

GaugeKind &GaugeKind::in(Quantity base)
{
    quantity = base;
    return *this;
}

GaugeKind &GaugeKind::with(Digits shown)
{
    digits = shown;
    return *this;
}

GaugeKind &GaugeKind::pairedWith(Value other)
{
    second = other;
    return *this;
}

GaugeKind &GaugeKind::selecting(Selection selected)
{
    selection = selected;
    return *this;
}

GaugeKind &GaugeKind::on(Scale own)
{
    scale = own;
    return *this;
}

GaugeKind &GaugeKind::limitedBy(Limits own)
{
    limits = own;
    return *this;
}

GaugeKind &GaugeKind::titled(const QString &chinese, const QString &english)
{
    chineseTitle = chinese;
    englishTitle = english;
    return *this;
}

GaugeKind &GaugeKind::titledBy(Title own)
{
    title = own;
    return *this;
}

QString GaugeKind::shortTitle(Key key) const
{
    if (title)
        return title(key);
    return LanguageUtilities::instance()->Translate(englishTitle, chineseTitle);
}
