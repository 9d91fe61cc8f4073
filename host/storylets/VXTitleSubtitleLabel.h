#pragma once
// A Storylet title over its subtitle, centred in the label, set by Qt's text engine: lines break
// at word boundaries and soft hyphens (a hyphen shows where one breaks), text in right-to-left
// scripts runs right to left, every script is shaped, and characters the title font lacks come
// from the machine's other fonts. A title too large for the label shrinks, down to the spec's
// minimum scale; what still does not fit is cut short with an ellipsis. The subtitle is one line.
//
// With diagnostics enabled the label keeps the lines the title was drawn in, as a reader sees them.

#include "VXFeatureSpec.h"

#include <QStringList>
#include <QWidget>

#include <memory>

class VXTitleSubtitleLabel : public QWidget {
    Q_OBJECT
public:
    explicit VXTitleSubtitleLabel(QWidget *parent = nullptr);
    ~VXTitleSubtitleLabel() override;

    const VXTitleSubtitleSpec &spec() const { return m_spec; }
    void setSpec(const VXTitleSubtitleSpec &spec);
    QString titleText() const { return m_title; }
    // "\n" starts a new line.
    void setTitleText(const QString &text);
    QString subtitleText() const { return m_subtitle; }
    void setSubtitleText(const QString &text);

    bool isDiagnosticsEnabled() const { return m_diagnostics; }
    void setDiagnosticsEnabled(bool enabled);

    // Lays the text out now for the current size, rather than when it is next painted.
    void layoutIfNeeded();
    // The title's lines as drawn: soft hyphens hidden, a hyphen where a line broke at one, an
    // ellipsis where the title was cut. Empty unless diagnostics are enabled.
    QStringList renderedLines() const;
    // The share of the spec's sizes the text was set at (1 when it fit as it is).
    double appliedScaleFactor();
    // The height the title and subtitle take, as laid out.
    double textHeight();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    struct Layout;
    void invalidate();

    VXTitleSubtitleSpec m_spec;
    QString m_title;
    QString m_subtitle;
    bool m_diagnostics = false;
    std::unique_ptr<Layout> m_layout;
};
