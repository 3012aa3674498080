#pragma once

#include <QJsonObject>
#include <QString>

/// The reply to a settings panel's request for a reading: {"event": request, "info": answer}, from
/// the present values of systemInfor. An unknown request gives the empty object.
QJsonObject answerRequest(const QString &request);
