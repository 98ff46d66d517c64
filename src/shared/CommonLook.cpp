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

void addDateToolbar(TextInput& field, std::function<void()> today, std::function<void()> done) {
    auto* toolbar = new Toolbar(&field, {92.0 / 255, 216.0 / 255, 1, 1}, /*translucent*/ true);
    toolbar->addItem(new BarButtonItem(toolbar, QStringLiteral("Today"), std::move(today)));
    toolbar->addItem(BarButtonItem::makeFlexibleSpace(toolbar));
    toolbar->addItem(new BarButtonItem(toolbar, QStringLiteral("Done"), std::move(done)));
    field.setInputAccessoryView(toolbar);
}

void styleTitleSegments(SegmentedControl& segments) {
    segments.setTintColor({0.0, 0.15, 0.65});
}
