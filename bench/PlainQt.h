#pragma once

#include <QFont>
#include <QImage>
#include <QString>

/// The work on one key written with the calls that Qt offers for it and nothing else: what the
/// plugin is measured against.
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
