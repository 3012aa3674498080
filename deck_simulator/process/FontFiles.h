#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

namespace deck {

/// A font file that the host offers to the plugin.
struct FontFile
{
    QString name; ///< The file name without folder and suffix.
    QString path; ///< Absolute.
};

FontFile fontFile(const QString &path);

/// The files of the Roboto family anywhere below \a folders, sorted by name; each name once.
QVector<FontFile> findRobotoFiles(const QStringList &folders);

/// Other font files anywhere below \a folders, \a most of them: well-known families first, then by
/// name; each name once.
QVector<FontFile> findFontFiles(const QStringList &folders, int most);

/// "FAMILY|STYLE" of every face in \a files, each once, in the files' order. Needs a GUI
/// application object.
QStringList fontSpecs(const QVector<FontFile> &files);

/// The machine's font folders.
QStringList fontFolders();

} // namespace deck
