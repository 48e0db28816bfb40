#include "editor/FindBar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>

FindBar::FindBar(QPlainTextEdit* searched, QWidget* parent)
    : QWidget(parent), text(searched), words(new QLineEdit(this)), verdict(new QLabel(this)) {
    auto* next = new QPushButton("&Next", this);
    auto* previous = new QPushButton("&Previous", this);
    auto* label = new QLabel("Fin&d", this);
    label->setBuddy(words);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(4, 2, 4, 2);
    for (QWidget* widget : std::initializer_list<QWidget*>{label, words, next, previous, verdict}) {
        row->addWidget(widget);
    }
    connect(next, &QPushButton::clicked, this, [this] { Find(false); });
    connect(previous, &QPushButton::clicked, this, [this] { Find(true); });
    connect(words, &QLineEdit::returnPressed, this, [this] { Find(false); });
    hide();
}

void FindBar::Ask() {
    const QString selected = text->textCursor().selectedText();
    if (!selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator)) {
        words->setText(selected);
    }
    show();
    words->setFocus();
    words->selectAll();
}

bool FindBar::Find(bool backwards) {
    const QString wanted = words->text();
    if (wanted.isEmpty()) {
        Ask();
        return false;
    }
    const auto flags = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = text->find(wanted, flags);
    if (!found) {
        const QTextCursor before = text->textCursor();
        text->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
        found = text->find(wanted, flags);
        if (!found) text->setTextCursor(before);
    }
    verdict->setText(found ? QString() : "not found");
    return found;
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
    hide();
    text->setFocus();
}
