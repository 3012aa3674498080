#pragma once

#include <QJsonObject>
#include <QString>
#include <QVector>

/// A key as the host sends it with "willAppear".
struct BenchKey
{
    QString action;
    QString context;
    QJsonObject payload;
};

/// The number of keys of a large deck.
constexpr int largeDeck = 32;

/// \a keys keys, of all kinds in turn, with their English titles in white Roboto Bold of 28 pixels;
/// with a \a style they show gauges of it, as far as they can.
QVector<BenchKey> benchDeck(int keys, const QString &style = {});

/// Sets up Qt without a display and only with the fonts of the deck. Called before the application
/// object exists.
void prepareEnvironment();

/// Registers the deck's font; false, with a line on standard error, when it is not installed.
bool registerDeckFont();
