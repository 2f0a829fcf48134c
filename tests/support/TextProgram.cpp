#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <QWidget>

#include <cstdio>

namespace {

using namespace Qt::StringLiterals;

void say(const QString& line)
{
    std::puts(line.toUtf8().constData());
    std::fflush(stdout);
}

/// A text that can be dragged: it stays after a copy and disappears after a move.
class DraggableText final : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void mousePressEvent(QMouseEvent* event) override
    {
        m_pressedAt = event->position().toPoint();
        say(u"pressed"_s);
    }
    void mouseMoveEvent(QMouseEvent* event) override
    {
        if (!event->buttons().testFlag(Qt::LeftButton) ||
            (event->position().toPoint() - m_pressedAt).manhattanLength() <
                QApplication::startDragDistance()) {
            return;
        }
        auto* content = new QMimeData;
        content->setText(text());
        auto* drag = new QDrag(this);
        drag->setMimeData(content);
        switch (drag->exec(Qt::CopyAction | Qt::MoveAction, Qt::MoveAction)) {
        case Qt::CopyAction:
            say(u"copied"_s);
            break;
        case Qt::MoveAction:
            clear();
            say(u"moved"_s);
            break;
        default:
            say(u"not taken"_s);
        }
    }

private:
    QPoint m_pressedAt;
};

/// A field into which a text can be dropped.
class TextField final : public QLineEdit
{
public:
    TextField()
    {
        connect(this, &QLineEdit::textChanged, this, [](const QString& text) { say(u"received "_s + text); });
    }

protected:
    void dragMoveEvent(QDragMoveEvent* event) override
    {
        QLineEdit::dragMoveEvent(event);
        say(u"dragged over"_s);
    }
};

} // namespace

/// A typical other program: the upper half of its window is the given text, which can be dragged, and the
/// lower half is a text field. It prints one line on standard output for each action.
int main(int argc, char** argv)
{
    const QApplication application(argc, argv);
    QWidget window(nullptr, Qt::FramelessWindowHint);
    window.setWindowTitle(u"Text Program"_s);
    window.setGeometry(40, 300, 360, 120);
    auto* layout = new QVBoxLayout(&window);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    auto* field = new TextField;
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    layout->addWidget(new DraggableText(QApplication::arguments().value(1)), 1);
    layout->addWidget(field, 1);
    window.show();
    return QApplication::exec();
}
