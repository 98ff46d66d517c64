#pragma once

class AppDelegate;
class Storyboard;

/** Adds the screens of names and of the quotes of each name. */
void addNameScenes(Storyboard& storyboard, AppDelegate& application);
