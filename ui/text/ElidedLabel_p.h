#pragma once

#include <ui/text/PlainLabel_p.h>

namespace korvel::Ui::VenueDatabase {

/// A label of one line for texts of the server. What does not fit ends in "…" and stands in the tool tip;
/// line breaks are drawn as blanks. text() is always the whole text.
class ElidedLabel : public PlainLabel
{
public:
    using PlainLabel::PlainLabel;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    QString ShownText() const override;
};

} // namespace korvel::Ui::VenueDatabase
