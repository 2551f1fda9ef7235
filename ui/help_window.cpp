#include "ui/help_window.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLineEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QShortcut>
#include <QTextBrowser>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

namespace tarnvik {

namespace {

// The pictures have three pixels for two of the screen.
constexpr double shown_size = 2.0 / 3;
constexpr int margins = 48;

/// Pages on white, like the paper that they are printed on; pictures are never wider than the window.
class PageBrowser : public QTextBrowser {
  public:
    PageBrowser() {
        QPalette paper = palette();
        paper.setColor(QPalette::Base, Qt::white);
        paper.setColor(QPalette::Text, QColor(29, 35, 41));
        paper.setColor(QPalette::Link, QColor(31, 95, 153));
        setPalette(paper);
        setOpenLinks(false);
        document()->setDocumentMargin(14);
        document()->setDefaultStyleSheet(
            "h1, h2, h3 { color: #1f4e79; } a { color: #1f5f99; text-decoration: none; }"
            "td { padding-right: 12px; padding-bottom: 3px; } th { text-align: left; }"
            "pre { background-color: #f2f4f6; } blockquote { background-color: #fdf7ea; }");
    }

  protected:
    /// The page in the words that this kind of text knows: a block that it does not know would join the one
    /// before it.
    static QByteArray Simpler(const QVariant& page) {
        QString text = QString::fromUtf8(page.toByteArray());
        static const QRegularExpression head("<head>.*</head>",
                                             QRegularExpression::DotMatchesEverythingOption);
        static const QRegularExpression columns("</?(colgroup|col)( [^>]*)?/?>");
        static const QRegularExpression blocks("<(/?)(figure|nav)( [^>]*)?>");
        static const QRegularExpression caption("<figcaption[^>]*>");
        text.remove(head).remove(columns).replace("</span>", "</span> &nbsp; ");
        text.replace(caption, "<br><i>").replace("</figcaption>", "</i>").replace(blocks, "<\\1p>");
        return text.toUtf8();
    }
    QVariant loadResource(int type, const QUrl& name) override {
        const QUrl place = source().resolved(name);
        if (type == QTextDocument::HtmlResource) return Simpler(QTextBrowser::loadResource(type, name));
        if (type != QTextDocument::ImageResource) return QTextBrowser::loadResource(type, name);
        QImageReader reader(place.toLocalFile());
        const QSize size = reader.size();
        const int widest = std::max(200, viewport()->width() - margins);
        const int width = std::min(static_cast<int>(size.width() * shown_size), widest);
        if (size.isValid()) reader.setScaledSize(size.scaled(width, size.height(), Qt::KeepAspectRatio));
        return reader.read();
    }
};

}  // namespace

HelpWindow::HelpWindow(QWidget* parent)
    : QWidget(parent, Qt::Window), Pages(new PageBrowser), Wanted(new QLineEdit) {
    setObjectName("HelpWindow");
    setWindowTitle(tr("Tarnvik: manual"));
    Pages->setObjectName("Pages");
    Pages->setAccessibleName(tr("Page of the manual"));
    auto* tools = new QHBoxLayout;
    const auto add = [&](const char* name, const QString& text, const QString& tip, auto run) {
        auto* button = new QToolButton;
        button->setObjectName(name);
        button->setText(text);
        button->setToolTip(tip);
        button->setFocusPolicy(Qt::TabFocus);
        connect(button, &QToolButton::clicked, this, run);
        tools->addWidget(button);
        return button;
    };
    QToolButton* back =
        add("Back", tr("◂ Back"), tr("The page before (Alt+Left)"), [this] { Pages->backward(); });
    QToolButton* forward = add("Forward", tr("Forward ▸"), tr("The page that was left (Alt+Right)"),
                               [this] { Pages->forward(); });
    add("Contents", tr("Contents"), tr("All chapters"), [this] {
        const QFileInfo page(Pages->source().toLocalFile());
        Pages->setSource(QUrl::fromLocalFile(page.absolutePath() + "/index.html"));
    });
    tools->addStretch();
    Wanted->setObjectName("Wanted");
    Wanted->setPlaceholderText(tr("Find on this page"));
    Wanted->setToolTip(tr("Return goes to the next place on this page (Ctrl+F)"));
    Wanted->setClearButtonEnabled(true);
    Wanted->setFixedWidth(fontMetrics().averageCharWidth() * 30);
    tools->addWidget(Wanted);
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(tools);
    rows->addWidget(Pages, 1);
    resize(900, 720);

    back->setEnabled(false);
    forward->setEnabled(false);
    connect(Pages, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
    connect(Pages, &QTextBrowser::forwardAvailable, forward, &QWidget::setEnabled);
    connect(Pages, &QTextBrowser::anchorClicked, this, &HelpWindow::Follow);
    connect(Wanted, &QLineEdit::returnPressed, this, &HelpWindow::Find_Next);
    new QShortcut(QKeySequence::Find, this, [this] {
        Wanted->setFocus();
        Wanted->selectAll();
    });
    new QShortcut(Qt::Key_Escape, this, [this] { close(); });
    Pages->setFocus();
}

bool HelpWindow::Show_Page(const QString& path) {
    if (!QFileInfo(path).isReadable()) return false;
    // Pictures are as wide as the window lets them.
    show();
    raise();
    activateWindow();
    Pages->setSource(QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath()));
    return true;
}

/// Chapters open here, the manual as a document by the desktop.
void HelpWindow::Follow(const QUrl& link) {
    const QUrl place = Pages->source().resolved(link);
    if (place.isLocalFile() && place.path().endsWith(".html")) {
        Pages->setSource(place);
    } else {
        QDesktopServices::openUrl(place);
    }
}

void HelpWindow::Find_Next() {
    if (Pages->find(Wanted->text())) return;
    // From the beginning again.
    Pages->moveCursor(QTextCursor::Start);
    Pages->find(Wanted->text());
}

}  // namespace tarnvik
