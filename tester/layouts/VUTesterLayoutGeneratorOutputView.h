#pragma once
// Shows what one host layout generator makes of the playground's current layout input: each item
// as a coloured box titled with the item's title, and on request the reference size, the corners
// the generator reports and its building-block grid. It observes the input manager and redraws on
// each change; a tap on a box goes back to the input manager.
//
// Like the platform's views, this one has a frame in its superview and bounds of its own, and its
// boxes may reach past its bounds (a generator's content can be taller than the view). The widget
// itself covers everything drawn, at the superview's drawing scale, so a zoomed-out strip paints
// its boxes small rather than transformed. Boxes are not widgets: the label views are light
// records, recycled from pass to pass, that the view paints.

#include "layouts/VUTesterLayoutInputManager.h"

#include "layout/VXLayoutGenerator.h"

#include <QColor>
#include <QWidget>

#include <memory>
#include <vector>

namespace ui {
class GestureRecognizer;
}

class VUTESTER_EXPORT VUTesterLayoutGeneratorOutputView : public QWidget, public VXChangeObserver {
    Q_OBJECT
public:
    // A label view: one item's box and title.
    struct Label {
        QRectF frame;
        QColor backgroundColor;
        QString text;
        bool hidden = false;
    };
    // Any other view drawn over the labels: the reference frame, a corner mark, a building block.
    struct Box {
        QRectF frame;
        QColor fillColor = Qt::transparent;
        QColor borderColor = Qt::transparent;
        double borderWidth = 0;
    };

    // `frame` is in the superview's unscaled coordinates.
    explicit VUTesterLayoutGeneratorOutputView(const QRectF &frame, QWidget *parent = nullptr);
    ~VUTesterLayoutGeneratorOutputView() override;

    const std::shared_ptr<VUTesterLayoutInputManager> &inputManager() const { return m_inputManager; }
    // Observes the new manager and redraws; the manager already held changes nothing.
    void setInputManager(std::shared_ptr<VUTesterLayoutInputManager> inputManager);
    VUTesterLayoutsPlaygroundSettings *settings() const { return m_settings; }
    void setSettings(VUTesterLayoutsPlaygroundSettings *settings) { m_settings = settings; }
    const VXLayoutGeneratorFactory &layoutGeneratorFactory() const { return m_layoutGeneratorFactory; }
    void setLayoutGeneratorFactory(VXLayoutGeneratorFactory factory) { m_layoutGeneratorFactory = std::move(factory); }
    qint64 numberOfItems() const { return m_numberOfItems; }
    void setNumberOfItems(qint64 count);
    qint64 maximumNumberOfItems() const { return m_maximumNumberOfItems; }
    void setMaximumNumberOfItems(qint64 count) { m_maximumNumberOfItems = count; }
    // The bounds united with every item frame of the last pass, in the view's own coordinates.
    QRectF contentBounds() const { return m_contentBounds; }

    QRectF frame() const { return m_frame; }
    void setFrame(const QRectF &frame);
    QRectF bounds() const { return QRectF(QPointF(), m_frame.size()); }
    // The scale the superview is drawn at (its zoom).
    double drawingScale() const { return m_drawingScale; }
    void setDrawingScale(double scale);
    // A point of this widget in the view's own coordinates.
    QPointF pointFromWidget(QPointF point) const;

    // The layout pass runs once the event loop turns, or now with layoutIfNeeded.
    void setNeedsLayout();
    bool needsLayout() const { return m_needsLayout; }
    void layoutIfNeeded();

    // Only for an ended tap: passes the index of the first box under it to the input manager and
    // answers true; false when the tap is between boxes.
    bool handleTap(ui::GestureRecognizer *tap);

    // The label views shown, in item order.
    const std::vector<Label *> &outputViews() const { return m_outputViews; }
    // The other views, in the order they were added.
    const std::vector<Box> &boxes() const { return m_boxes; }

    void didChange(VXObservable *observable, quint64 change, void *context) override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void _inputDidChange();
    void layoutSubviews();
    Label *dequeueLabel();
    void addBox(const QRectF &frame, const QColor &fill, const QColor &border = Qt::transparent, double borderWidth = 0);
    void updateWidgetGeometry();

    std::shared_ptr<VUTesterLayoutInputManager> m_inputManager;
    QPointer<VUTesterLayoutsPlaygroundSettings> m_settings;
    VXLayoutGeneratorFactory m_layoutGeneratorFactory;
    qint64 m_numberOfItems = 0;
    qint64 m_maximumNumberOfItems = 0;
    QRectF m_frame;
    QRectF m_contentBounds;
    double m_drawingScale = 1;
    bool m_needsLayout = false;
    bool m_layoutRequested = false;
    // What the widget covers, in the view's own coordinates: the content and every box.
    QRectF m_drawnBounds;

    std::vector<std::unique_ptr<Label>> m_labels; // every label made, shown or reusable
    std::vector<Label *> m_reusableLabels;
    std::vector<Label *> m_outputViews;
    std::vector<Box> m_boxes;
};
