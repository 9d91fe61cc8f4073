#pragma once
// The tiling view playground: the host's tiling view over synthetic content, as many sections as
// the tiling view settings ask for, each item a placeholder picture. It offers no actions.

#include "shell/VUTesterExport.h"

#include "ui/ViewController.h"

class VUTilingView;

class VUTESTER_EXPORT VUTesterTilingViewPlaygroundViewController : public ui::ViewController {
    Q_OBJECT
public:
    explicit VUTesterTilingViewPlaygroundViewController(QObject *parent = nullptr);
    // Null until the view is loaded.
    VUTilingView *tilingView() const { return m_tilingView; }

protected:
    QWidget *loadView() override;

private:
    VUTilingView *m_tilingView = nullptr;
};
