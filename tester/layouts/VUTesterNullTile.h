#pragma once
// A bare coloured view tile with no content: applying a geometry and being reused cost nothing.

#include "shell/VUTesterExport.h"

#include "tiling/VXTilingProtocols.h"

#include <QWidget>

class VUTESTER_EXPORT VUTesterNullTile : public QWidget, public VXUIViewBasicTile {
    Q_OBJECT
public:
    explicit VUTesterNullTile(QWidget *parent = nullptr);

    QWidget *view() override { return this; }
    void didApplyGeometry(const VXTileGeometry &, const void *) override {}
    void becomeReusable() override {}
    void prepareForReuse() override {}
};
