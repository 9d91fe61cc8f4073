#pragma once
// The User Transforms playground: a detail of the fractal generator's set, at the edge where the
// set meets its red-to-yellow surroundings, to pinch, turn and move within the settings' limits,
// with the composed transform read out live as its parts and its matrix. The limits follow the
// settings while the screen is shown.

#include "shell/VUTesterExport.h"

#include <graphics/Image.h>

#include "ui/TappableRows.h"
#include "ui/ViewController.h"

#include <QTransform>

class QLabel;
class VUUserTransformView;

class VUTESTER_EXPORT VUTesterUserTransformsPlaygroundViewController : public ui::ViewController, public ui::TappableRows {
    Q_OBJECT
public:
    // The fractal set-up of the picture.
    static constexpr double kCenterX = -1.3;
    static constexpr double kCenterY = -0.1;
    static constexpr double kInnerRadius = 0.1;
    static constexpr qint64 kMaxIterations = 200;
    static constexpr qint64 kColorScheme = 1;
    static constexpr double kPictureSide = 800;

    VUTesterUserTransformsPlaygroundViewController();

    // Null until the view is loaded.
    VUUserTransformView *transformView() const { return m_transformView; }
    // "Scale 2.50  Rotation 12.0°", the translation, and the matrix.
    static QString textForTransform(const QTransform &transform);
    QString transformText() const;

    QList<ui::TappableRow> tappableRows() override;

protected:
    QWidget *loadView() override;

private:
    void _applySettings();
    void _showTransform(const QTransform &transform);

    VUUserTransformView *m_transformView = nullptr;
    QLabel *m_readout = nullptr;
};
