#pragma once
// One row of a settings section: its title at the leading edge; at the trailing edge its current
// value in a secondary colour, a chevron when it opens another screen, a checkmark when it is the
// chosen one, or a control (a switch, a text field); a slider goes on a line of its own below.
// A cell that can be tapped darkens while pressed and answers Return and Space.

#include <QWidget>

class TWUISettingsCell : public QWidget {
    Q_OBJECT
public:
    enum class Style {
        Plain,  // a title, maybe a value and a control
        Button, // a title in the accent colour
        Inert,  // a row whose target does not exist yet: dimmed, not tappable
    };
    enum class Accessory { None, Chevron, Checkmark };

    explicit TWUISettingsCell(QWidget *parent = nullptr);

    QString title() const { return m_title; }
    void setTitle(const QString &title);
    // The current value shown at the trailing edge.
    QString detailText() const { return m_detail; }
    void setDetailText(const QString &text);
    Style style() const { return m_style; }
    void setStyle(Style style);
    Accessory accessory() const { return m_accessory; }
    void setAccessory(Accessory accessory);
    bool isTappable() const { return m_tappable; }
    void setTappable(bool tappable);

    // A control at the trailing edge (switch, text field); the cell takes ownership.
    void setTrailingControl(QWidget *control);
    // A control on its own line under the title (slider); the cell takes ownership.
    void setBottomControl(QWidget *control);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void tapped();

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void replaceControl(QWidget **slot, QWidget *control);
    void updateLayout();
    int accessoryWidth() const;
    // The height of the line with the title: the whole row unless a control sits below it.
    int titleBandHeight() const;

    QString m_title;
    QString m_detail;
    Style m_style = Style::Plain;
    Accessory m_accessory = Accessory::None;
    bool m_tappable = false;
    bool m_pressed = false;
    QWidget *m_trailing = nullptr;
    QWidget *m_bottom = nullptr;
};
