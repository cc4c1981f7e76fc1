#pragma once

#include <QPoint>
#include <QRect>
#include <QString>
#include <QStringList>
#include <optional>

namespace qpt::standin {

// What the stand-in host was asked to do.
struct HostOptions {
    QString picture;            // a picture file; the bundled sample when empty
    std::optional<QPoint> at;   // where the picture was "captured"
    std::optional<QRect> grab;  // capture this part of the screen instead
    QString program;            // QptPin; the one beside the host when empty
    bool choose = false;        // the demo's window: the user picks what to pin
    QString screenshot;         // take a screen shot after a while, then end QptPin
    int screenshotAfterMs = 2000;
    QString error;  // set when the arguments made no sense
};

HostOptions ParseHostOptions(const QStringList& arguments);
QString HostUsage();

}  // namespace qpt::standin
