#pragma once

#include "sensors/FontRecord.h"

#include <QFont>
#include <QString>
#include <QStringList>
#include <QVector>

/// The available fonts: files that the host names, registered with Qt and listed in
/// systemInfor::fontlist_one. Filled once at start-up, on the main thread.
namespace fontregistry {

struct FontFile
{
    QString name; ///< Display name, not used for loading.
    QString url;  ///< Path of the file.
};

/// The "fonts" array of the host's info document, in which single quotes are used as double quotes.
/// A text that is not a JSON object is logged; then, and when the array is missing, the list is
/// empty.
QVector<FontFile> loadFontList(const QString &infoJson);

/// One record for each style of a family, in the given order. The first one is listed with the
/// family only, except "Roboto|Bold", the default font of keys, which keeps its style; "Roboto
/// Light|Regular" is left out.
QVector<FontRecord> recordsOf(const QString &family, const QStringList &styles,
                              const QString &path);

/// The families of one file, except those whose trimmed name has occurred before.
QStringList distinctFamilies(const QStringList &families);

/// Registers one font file and lists its families and styles whose specification is not listed yet.
/// A file that cannot be loaded is logged.
void loadFont(const QString &path);

/// The style at the end of the display name of the font listed as \a spec, as written there; empty
/// when there is none.
QString inferStyleFromName(const QString &spec);

/// The font that "FAMILY|STYLE" or "FAMILY" names; \a pointSize is that of the font it replaces.
QFont fontFromSpec(const QString &spec, int pointSize);

} // namespace fontregistry
