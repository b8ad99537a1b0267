#include "targets/target.h"

Target::Target(QObject *parent) : QObject(parent) {}
