#pragma once

#include <QFont>
#include <QImage>
#include <QString>

/// The work on one key, written only with the functions that Qt offers for it: what the plugin is
/// compared with.
namespace plainqt {

struct Key
{
    QString action;
    QString context;
    QFont font;
    QString color;
    double opacity;
};

/// One or two lines, separated by a line feed.
QImage paint(const Key &key, const QString &text);

QByteArray encode(const QImage &image);

QString dataUrl(const QByteArray &png);

QString imageMessage(const QString &context, const QString &image);

QString titleMessage(const QString &context, const QString &title);

} // namespace plainqt
