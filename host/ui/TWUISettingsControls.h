#pragma once
// The controls of settings rows, drawn as phones draw them and following light and dark
// palettes: a switch, a slider and a borderless text field.

#include <QAbstractButton>
#include <QLineEdit>
#include <QSlider>

// A rounded track, green when on, with a round knob.
class TWUISwitch : public QAbstractButton {
    Q_OBJECT
public:
    explicit TWUISwitch(QWidget *parent = nullptr);
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;
    bool hitButton(const QPoint &pos) const override;
};

// A thin track filled in the accent colour up to a round white handle.
class TWUISettingsSlider : public QSlider {
    Q_OBJECT
public:
    explicit TWUISettingsSlider(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void applyAppearance();
};

// A text field without a frame, its text in the secondary colour at the trailing edge.
class TWUISettingsTextField : public QLineEdit {
    Q_OBJECT
public:
    explicit TWUISettingsTextField(QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void applyAppearance();
};
