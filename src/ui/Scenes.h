#pragma once

#include "app/AppDelegate.h"
#include "toolkit/Storyboard.h"

#include <memory>

/** Adds every screen of the program, its way out of each control, and its bar buttons. */
void addScenes(Storyboard& storyboard, AppDelegate& application);

/** The first screen in its navigation stack. */
std::unique_ptr<NavigationController> makeRootViewController(Storyboard& storyboard);
