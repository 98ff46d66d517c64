#include "CommonLook.h"

void styleButton(View& button) {
    button.setCornerRadius(10);
    button.setBorderWidth(2);
    button.setBorderColor(black);
}

void styleRow(TableViewCell& cell) {
    styleButton(cell);
    cell.setBackgroundColor(Color::hsb(0.5, 0.06, 0.96));
}

void styleFormField(View& field) {
    field.setCornerRadius(5);
    field.setBorderWidth(1);
}

void styleTitleSegments(SegmentedControl& segments) {
    segments.setTintColor({0.0, 0.15, 0.65});
}
