#pragma once

#include <QLayout>
#include <QVector>

namespace deck {

/// Puts widgets beside each other, and what finds no room into further lines.
class FlowLayout : public QLayout
{
    Q_OBJECT

public:
    /// \a alignment is Qt::AlignLeft or Qt::AlignHCenter and holds for each line.
    FlowLayout(QWidget *parent, Qt::Alignment alignment);
    ~FlowLayout() override;
    Q_DISABLE_COPY(FlowLayout)

    void addItem(QLayoutItem *item) override;
    [[nodiscard]] int count() const override;
    [[nodiscard]] QLayoutItem *itemAt(int index) const override;
    QLayoutItem *takeAt(int index) override;

    [[nodiscard]] Qt::Orientations expandingDirections() const override;
    [[nodiscard]] bool hasHeightForWidth() const override;
    [[nodiscard]] int heightForWidth(int width) const override;
    /// All in one line.
    [[nodiscard]] QSize sizeHint() const override;
    /// One widget in each line.
    [[nodiscard]] QSize minimumSize() const override;
    void setGeometry(const QRect &rect) override;

private:
    using Line = QVector<QLayoutItem *>;

    [[nodiscard]] QVector<Line> lines(int width) const;
    [[nodiscard]] int widthOf(const Line &line) const;
    [[nodiscard]] static int heightOf(const Line &line);
    [[nodiscard]] QSize marginSize() const;

    QVector<QLayoutItem *> m_items;
    Qt::Alignment m_alignment;
};

} // namespace deck
