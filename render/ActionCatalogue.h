#pragma once

#include <QString>
#include <QVector>

/// One kind of key with a default title.
struct ActionCatalogueRow
{
    QString uuid;
    QString chineseTitle;
    QString englishTitle;
};

/// Every kind of key that has a default title, in the order in which UUIDs are compared.
const QVector<ActionCatalogueRow> &actionCatalogue();

/// The default title in the current language: the translation of the English title, or the Chinese
/// title where the language has no table. Empty for a UUID without a row: UUIDs are compared
/// exactly, and some kinds of keys have no default title.
QString defaultTitle(const QString &uuid);

/// Whether \a title is the default title of \a uuid in any language; for a kind without one,
/// whether it is empty.
bool isDefaultTitle(const QString &uuid, const QString &title);
