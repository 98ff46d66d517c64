#pragma once

#include "app/AppDelegate.h"

/** Offers a text in the share sheet, or tells in an alert that the device cannot send texts. */
void shareText(ViewController& screen, AppDelegate& application, const QString& text,
               std::vector<ActivityType> excluded = {});
