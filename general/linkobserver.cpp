#include "linkobserver.h"

LinkObserver::LinkObserver(QObject *dialog) : QObject(dialog) {}
LinkObserver::~LinkObserver() = default;

LinkObserver *LinkObserver::of(const QObject *object)
{
    for (; object; object = object->parent()) {
        for (QObject *child : object->children()) {
            if (auto *observer = qobject_cast<LinkObserver *>(child))
                return observer;
        }
    }
    return nullptr;
}
