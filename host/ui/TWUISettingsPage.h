#pragma once
// The scrolling page of a settings screen: sections one under another on the grouped background.

#include <QScrollArea>

class QVBoxLayout;
class TWUISettingsSectionView;

class TWUISettingsPage : public QScrollArea {
    Q_OBJECT
public:
    explicit TWUISettingsPage(QWidget *parent = nullptr);
    void addSection(TWUISettingsSectionView *section);

private:
    QVBoxLayout *m_column;
};
