#include "NameRecordList.h"

Label* makeCountHeader(const QString& caption, std::size_t count) {
    auto* header = new Label(nullptr);
    header->setText(caption + QString::number(count));
    header->setBackgroundColor(lightGrey);
    header->setTextColor(black);
    header->setCentered(true);
    header->setBoldSystemFont(18);
    return header;
}
