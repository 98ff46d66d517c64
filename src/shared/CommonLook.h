#pragma once

#include "toolkit/SegmentedControl.h"
#include "toolkit/TableView.h"
#include "toolkit/TextInput.h"

#include <functional>

/** A large button: corner radius 10, border 2 points wide, black. */
void styleButton(View& button);

/** A row: as a button, on a pale background. */
void styleRow(TableViewCell& cell);

/** A text input of a form: corner radius 5, border 1 point wide. */
void styleFormField(View& field);

/** Puts the toolbar "Today" and "Done" above the date picker of a field. */
void addDateToolbar(TextInput& field, std::function<void()> today, std::function<void()> done);

/** The tint of the segments in a title. */
void styleTitleSegments(SegmentedControl& segments);
