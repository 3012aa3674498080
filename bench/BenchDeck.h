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

/// \a keys keys: every kind in turn with its English title, in Roboto Bold of 28 pixels, white.
QVector<BenchKey> benchDeck(int keys);

/// No display, and no fonts but those of the deck. Called before the application object exists.
void prepareEnvironment();

/// Registers the deck's font; false, with a line on standard error, when it is not installed.
bool registerDeckFont();
