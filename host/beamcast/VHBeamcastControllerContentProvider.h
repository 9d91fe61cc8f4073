#pragma once
// What the Beamcast screen-streaming feature asks of whoever has content for an external screen:
// the view controller to show there. The controller that asks may be null (a simulated screen).

namespace ui {
class ViewController;
}

class VHBeamcastController;

class VHBeamcastControllerContentProvider {
public:
    virtual ~VHBeamcastControllerContentProvider() = default;
    // A new view controller; whoever shows it takes ownership.
    virtual ui::ViewController *contentViewControllerForBeamcastController(VHBeamcastController *controller) = 0;
};
