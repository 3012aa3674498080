#include "deck_simulator/gui/MessageBar.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QStyle>
#include <QToolButton>

#include <chrono>

namespace deck {

namespace {

constexpr std::chrono::seconds briefTime{15};

// Lines that are shown at once, also in a window that has fewer than lowWindow of them.
constexpr int mostLines = 3;
constexpr int mostLinesInLowWindow = 2;
constexpr int lowWindow = 20;

// With places at which long paths may be broken.
QString breakable(const QString &text)
{
    const QChar zeroWidthSpace(0x200b);
    QString result;
    for (const QChar letter : text) {
        result += letter;
        if (QStringLiteral("/\\_-.").contains(letter))
            result += zeroWidthSpace;
    }
    return result;
}

} // namespace

MessageBar::MessageBar(QWidget *parent)
    : QFrame(parent)
    , m_label(new QLabel)
    , m_scroll(new QScrollArea)
    , m_close(new QToolButton)
{
    setFrameShape(QFrame::StyledPanel);
    setAutoFillBackground(true);
    setBackgroundRole(QPalette::ToolTipBase);
    m_label->setForegroundRole(QPalette::ToolTipText);
    m_label->setObjectName(QStringLiteral("message"));
    m_label->setTextFormat(Qt::PlainText);
    m_label->setWordWrap(true);
    m_label->setMinimumWidth(1);
    m_scroll->setWidget(m_label);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_label->setAutoFillBackground(false);
    m_scroll->viewport()->installEventFilter(this);
    m_close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    m_close->setAutoRaise(true);
    m_close->setToolTip(tr("Close the message"));
    m_close->setAccessibleName(m_close->toolTip());
    auto *layout = new QHBoxLayout(this);
    layout->addWidget(m_scroll, 1);
    layout->addWidget(m_close, 0, Qt::AlignTop);
    m_timer.setSingleShot(true);
    connect(&m_timer, &QTimer::timeout, this, &MessageBar::clear);
    connect(m_close, &QToolButton::clicked, this, &MessageBar::clear);
    hide();
}

void MessageBar::showMessage(const QString &text)
{
    m_timer.stop();
    m_message = text;
    m_label->setText(breakable(text));
    setVisible(!text.isEmpty());
    makeRoom();
}

void MessageBar::showBriefly(const QString &text)
{
    showMessage(text);
    m_timer.start(briefTime);
}

void MessageBar::clear()
{
    showMessage({});
}

// A main window gives no widget the height that its width asks for.
void MessageBar::makeRoom()
{
    // Without a text it is -1.
    const int height = qMax(0, m_label->heightForWidth(m_scroll->viewport()->width()));
    const int line = m_label->fontMetrics().lineSpacing();
    const int most = window()->height() < lowWindow * line ? mostLinesInLowWindow : mostLines;
    m_scroll->setFixedHeight(qMin(height, most * line));
}

bool MessageBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_scroll->viewport() && event->type() == QEvent::Resize)
        makeRoom();
    return QFrame::eventFilter(watched, event);
}

} // namespace deck
