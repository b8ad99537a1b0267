#include "target.h"

Target::Target(QObject *parent) : QObject(parent) {}
