#include "VUTesterNullTile.h"

VUTesterNullTile::VUTesterNullTile(QWidget *parent) : QWidget(parent) {}
