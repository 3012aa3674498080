#include "deck_simulator/gui/LogView.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace deck {

namespace {

constexpr int fewestLines = 2;
constexpr int margin = 4; // pixels

enum Source { fileOnly, debugOnly, both }; // as the tabs

// As large as \a text.
QFont fixedFont(const QFont &text)
{
    QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    if (text.pointSizeF() > 0)
        font.setPointSizeF(text.pointSizeF());
    else
        font.setPixelSize(text.pixelSize());
    // Not every platform has one.
    if (!QFontInfo(font).fixedPitch()) {
        font.setFamily(QStringLiteral("monospace"));
        font.setStyleHint(QFont::TypeWriter);
    }
    return font;
}

} // namespace

LogView::LogView(PluginLog *log, QWidget *parent)
    : QWidget(parent)
    , m_log(log)
    , m_source(new QTabBar)
    , m_text(new QLineEdit)
    , m_clear(new QToolButton)
    , m_view(new QPlainTextEdit)
{
    for (const QString &name : {tr("log.txt"), tr("Debug stream"), tr("Everything")})
        m_source->addTab(name);
    m_source->setExpanding(false);
    m_source->setDrawBase(false);
    m_source->setTabToolTip(debugOnly, tr("The plugin's standard error, with times of arrival"));
    m_source->setAccessibleName(tr("Source"));
    m_text->setPlaceholderText(tr("Filter"));
    m_text->setClearButtonEnabled(true);
    m_clear->setText(tr("Clear"));
    m_view->setReadOnly(true);
    m_view->setLineWrapMode(QPlainTextEdit::NoWrap);
    m_view->setMaximumBlockCount(LogBuffer::mostLines);
    showFont();
    m_view->setAccessibleName(tr("Log"));

    auto *bar = new QHBoxLayout;
    bar->addWidget(m_source);
    bar->addWidget(m_text, 1);
    bar->addWidget(m_clear);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->addLayout(bar);
    layout->addWidget(m_view);

    connect(m_source, &QTabBar::currentChanged, this, &LogView::showAll);
    connect(m_text, &QLineEdit::textChanged, this, &LogView::showAll);
    connect(m_clear, &QToolButton::clicked, this, [this] {
        m_log->clear();
        showAll();
    });
    connect(m_log, &PluginLog::lineAdded, this, &LogView::showLine);
    const QScrollBar *place = m_view->verticalScrollBar();
    connect(place, &QScrollBar::actionTriggered, this, &LogView::onScrolled);
    connect(place, &QScrollBar::rangeChanged, this, &LogView::follow);
    showAll();
}

void LogView::showFont()
{
    m_view->setFont(fixedFont(font()));
    m_view->setMinimumHeight(qMax(m_view->minimumSizeHint().height(),
                                  fewestLines * m_view->fontMetrics().lineSpacing()));
}

LogFilter LogView::filter() const
{
    const int source = m_source->currentIndex();
    return {source != debugOnly, source != fileOnly, m_text->text()};
}

void LogView::showAll()
{
    m_view->setPlainText(m_log->lines().matching(filter()).join(QLatin1Char('\n')));
    m_follows = true;
    follow();
}

void LogView::showLine(const LogLine &line)
{
    if (!matches(line, filter()))
        return;
    QScrollBar *bar = m_view->verticalScrollBar();
    const int before = bar->value();
    m_view->appendPlainText(line.text);
    // The view has scrolled by itself if the end was in sight.
    if (isMarking())
        bar->setValue(before);
    follow();
}

void LogView::onScrolled()
{
    const QScrollBar *bar = m_view->verticalScrollBar();
    m_follows = bar->sliderPosition() >= bar->maximum();
}

void LogView::follow()
{
    QScrollBar *bar = m_view->verticalScrollBar();
    if (m_follows && !isMarking())
        bar->setValue(bar->maximum());
}

bool LogView::isMarking() const
{
    return m_view->textCursor().hasSelection();
}

void LogView::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        showFont();
    QWidget::changeEvent(event);
}

void LogView::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    follow();
}

} // namespace deck
