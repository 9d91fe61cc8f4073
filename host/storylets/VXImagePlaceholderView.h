#pragma once
// The image view of a tile while it has no image: its spec's background with the spec's corners.

#include "VXFeatureSpec.h"

#include <QWidget>

class VXImagePlaceholderView : public QWidget {
    Q_OBJECT
public:
    explicit VXImagePlaceholderView(QWidget *parent = nullptr) : QWidget(parent) {}
    const VXImageViewSpec &spec() const { return m_spec; }
    void setSpec(const VXImageViewSpec &spec);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    VXImageViewSpec m_spec;
};
