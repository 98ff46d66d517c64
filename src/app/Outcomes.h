#pragma once

#include "app/AppDelegate.h"

/** An answer that tells the user on a screen what has come of it: in an alert where it failed, in a
 * note what nothing else shows. */
Answer tellOn(ViewController& screen, const AppDelegate& application);
