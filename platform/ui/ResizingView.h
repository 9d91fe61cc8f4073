#pragma once
// A plain view that tells its owner when its size changes, so a controller can lay out by hand
// what the view holds.

#include <QResizeEvent>
#include <QWidget>

#include <functional>

namespace ui {

class ResizingView : public QWidget {
public:
    explicit ResizingView(std::function<void()> resized, QWidget *parent = nullptr) : QWidget(parent), m_resized(std::move(resized)) {}

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        QWidget::resizeEvent(event);
        m_resized();
    }

private:
    std::function<void()> m_resized;
};

} // namespace ui
