#pragma once

// Answers modal dialogs the way a user would: waits for the next one to open and accepts it,
// rejects it or chooses a file. Answers are used in the order they were queued;
// a dialog with no answer left is rejected, so a test never hangs on an unexpected question.

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>

#include <functional>

namespace coagulation::test {

class DialogAnswerer : public QObject
{
public:
    using Answer = std::function<void(QDialog* dialog)>;

    DialogAnswerer()
    {
        m_timer.setInterval(10);
        QObject::connect(&m_timer, &QTimer::timeout, this, [this] { answerActiveDialog(); });
        m_timer.start();
    }

    // Runs answer on the next dialog; it is expected to close the dialog (accept or reject).
    DialogAnswerer& then(const Answer& answer)
    {
        m_answers.append(answer);
        return *this;
    }
    DialogAnswerer& accept()
    {
        return then([](QDialog* dialog) { dialog->accept(); });
    }
    DialogAnswerer& reject()
    {
        return then([](QDialog* dialog) { dialog->reject(); });
    }
    // Types an existing file's path into a file dialog and confirms it. Typed, not selected:
    // selectFile() leaves the name field alone once it has focus, which depends on timing.
    DialogAnswerer& chooseFile(const QString& fileName)
    {
        return then([fileName](QDialog* dialog) {
            if (auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit")))
                name->setText(fileName);
            dialog->accept();
        });
    }

    // Class names of the dialogs answered so far, in order.
    QStringList shown() const { return m_shown; }

private:
    void answerActiveDialog()
    {
        auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        // An answer may itself open a dialog (and wait for it): that one is answered, not the
        // one whose answer is still running.
        if (!dialog || m_answering.contains(dialog))
            return;
        m_answering.append(dialog);
        m_shown.append(QString::fromLatin1(dialog->metaObject()->className()));
        const Answer answer = m_answers.isEmpty() ? Answer() : m_answers.takeFirst();
        const QPointer<QDialog> alive(dialog);
        if (answer)
            answer(dialog);
        // An answer that left the dialog open, or no answer: the user cancels.
        if (alive && alive->isVisible())
            alive->reject();
        m_answering.removeOne(dialog);
    }

    QTimer m_timer;
    QList<Answer> m_answers;
    QStringList m_shown;
    QList<QDialog*> m_answering;
};

} // namespace coagulation::test
