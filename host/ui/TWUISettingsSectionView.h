#pragma once
// A section of a settings screen: its title above, in small capitals, then its rows on a card
// with rounded corners, inset from the screen's edges, with a hairline between rows.

#include <QWidget>

class QLabel;
class QPainterPath;
class QVBoxLayout;
class TWUISettingsCell;

// The card the rows sit on; it draws the separators between the rows that are shown.
class TWUISettingsSectionCard : public QWidget {
    Q_OBJECT
public:
    explicit TWUISettingsSectionCard(QWidget *parent = nullptr);
    void addCell(TWUISettingsCell *cell);
    // The card's outline, which pressed rows stay within.
    QPainterPath backgroundPath() const;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QVBoxLayout *m_rows;
};

class TWUISettingsSectionView : public QWidget {
    Q_OBJECT
public:
    // An empty title leaves only a little space above the card.
    explicit TWUISettingsSectionView(const QString &title, QWidget *parent = nullptr);
    void addCell(TWUISettingsCell *cell);
    QLabel *header() const { return m_header; }

protected:
    void changeEvent(QEvent *event) override;

private:
    void applyAppearance();

    QLabel *m_header = nullptr;
    TWUISettingsSectionCard *m_card;
};
