#pragma once

#include <QCoreApplication>
#include <QHeaderView>

namespace korvel::Ui::VenueDatabase {

/// The headers above the venue table, which can also be used without a mouse: Tab leads to them, the arrow
/// keys, Home and End from one to the other, Space and Return sort, Down leads to the rows.
///
/// No class of its own for style sheets: they reach it as a QHeaderView. The section with the keyboard focus
/// is their QHeaderView::section:focus.
class VenueHeaderView : public QHeaderView
{
    Q_DECLARE_TR_FUNCTIONS(korvel::Ui::VenueDatabase::VenueDbCentralWidget)

public:
    explicit VenueHeaderView(QWidget* table);

    void setModel(QAbstractItemModel* model) override;

protected:
    void focusInEvent(QFocusEvent* event) override;
    void initStyleOptionForIndex(QStyleOptionHeader* option, int logicalIndex) const override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;

private:
    /// The logical index of the section that the keys act on; -1 without sections.
    int CurrentSection() const;
    /// The visible section next to the one at the visual index \p from, in steps of \p step; -1 for none.
    int VisibleSection(int from, int step) const;
    void GoTo(int section);
    void SortByCurrentSection();

    int m_section = -1;
};

} // namespace korvel::Ui::VenueDatabase
