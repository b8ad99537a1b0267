#include "DisplayCheck.h"

#include <QByteArray>
#include <QList>
#include <QtGlobal>

#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

/** True when a display server accepts a connection to the socket of that local display number. */
bool answers(const QByteArray &number)
{
    const QByteArray path = "/tmp/.X11-unix/X" + number;
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= int(sizeof address.sun_path))
        return false;
    std::memcpy(address.sun_path, path.constData(), std::size_t(path.size()));
    const int descriptor = ::socket(AF_UNIX, SOCK_STREAM, 0);
    if (descriptor < 0)
        return false;
    const bool connected =
            ::connect(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof address)
            == 0;
    ::close(descriptor);
    return connected;
}

} // namespace

bool DisplayCheck::isReachable()
{
    const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
    if (!platform.isEmpty() && !platform.startsWith("xcb") && !platform.startsWith("wayland"))
        return true;
    if (!qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY"))
        return true;
    const QByteArray display = qgetenv("DISPLAY");
    const int colon = display.lastIndexOf(':');
    if (colon < 0)
        return false;
    // A display of another machine cannot be checked here and counts as reachable.
    return colon > 0 || answers(display.mid(1).split('.').first());
}
