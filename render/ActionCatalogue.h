#pragma once

#include <QString>

/// One kind of key with a default title.
struct ActionCatalogueRow
{
    QString uuid;
    QString chineseTitle;
    QString englishTitle;
};

/// UUIDs that other code names.
namespace actionuuid {
extern const QString netWork;
} // namespace actionuuid

/// The row of \a uuid (compared exactly), or null: some kinds of keys have no default title.
const ActionCatalogueRow *findCatalogueRow(const QString &uuid);

/// The default title in the current language: the translation of the English title, or the Chinese
/// title where the language has no table. Empty for a UUID without a row.
QString defaultTitle(const QString &uuid);
