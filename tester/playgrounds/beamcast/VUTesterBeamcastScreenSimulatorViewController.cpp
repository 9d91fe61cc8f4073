#include "playgrounds/beamcast/VUTesterBeamcastScreenSimulatorViewController.h"

#include "shell/VUTesterVersion.h"

#include <beamcast/VUBeamcastRootViewController.h>

#include "ui/Autoresizing.h"
#include "ui/BackgroundColor.h"

#include <QWidget>

VUTesterBeamcastScreenSimulatorViewController::VUTesterBeamcastScreenSimulatorViewController(
    std::shared_ptr<VHBeamcastControllerContentProvider> contentProvider, QObject *parent)
    : ui::ViewController(parent), m_contentProvider(std::move(contentProvider))
{
}

void VUTesterBeamcastScreenSimulatorViewController::viewDidLoad()
{
    // What shows of this view round the content is the screen's border.
    ui::setBackgroundColor(view(), Qt::darkGray);
    view()->setObjectName(QStringLiteral("beamcastScreen"));

    m_rootViewController = new VUBeamcastRootViewController(this);
    m_rootViewController->setChildViewController(
        m_contentProvider ? m_contentProvider->contentViewControllerForBeamcastController(nullptr) : nullptr, false);
    m_rootViewController->setParentViewController(this);
    QWidget *content = m_rootViewController->view();
    const int border = int(VUTesterBeamcastScreenBorderSize);
    content->setParent(view());
    content->setGeometry(view()->rect().adjusted(border, border, -border, -border));
    ui::setAutoresizingMask(content, ui::Autoresizing::FlexibleWidth | ui::Autoresizing::FlexibleHeight);
    content->setAttribute(Qt::WA_TransparentForMouseEvents);
    content->show();
}
