#pragma once
// What the component playground tests share: a temporary folder as TMPDIR (where test pattern movies
// are cached), a library of their own filled through the module's writers, a phone-sized window,
// and waiting until a screen has settled.

#include "ui/ViewController.h"
#include "ui/Window.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <memory>

class VHPhotoLibrary;

class PlaygroundFixture : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;

    // Shows the screen as the window's root.
    void show(ui::ViewController *screen);
    static bool settle();

    // A library in the temporary folder, created on first use.
    std::shared_ptr<VHPhotoLibrary> library();
    // Adds videos of 48 numbered pictures (TestMovies.h).
    void addVideos(int count);
    // Adds a Stir Shot: a photo and its paired movie of 48 numbered pictures, the still showing
    // the moment `displayTime`.
    void addStirShot(double displayTime);

    QTemporaryDir m_temporary;
    std::unique_ptr<ui::Window> m_window;

private:
    QByteArray m_oldTemporary;
    std::shared_ptr<VHPhotoLibrary> m_library;
    int m_added = 0;
};
