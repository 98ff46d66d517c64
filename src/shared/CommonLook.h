#pragma once

#include "toolkit/SegmentedControl.h"
#include "toolkit/TableView.h"

/** A large button: corner radius 10, border 2 points wide, black. */
void styleButton(View& button);

/** A row: as a button, on a pale background. */
void styleRow(TableViewCell& cell);

/** A text input of a form: corner radius 5, border 1 point wide. */
void styleFormField(View& field);

/** The tint of the segments in a title. */
void styleTitleSegments(SegmentedControl& segments);
