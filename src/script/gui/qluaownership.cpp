#include "qluaownership.h"

#include <QCoreApplication>
#include <QWidget>

namespace {

// Nothing of Qt owns the object: it is the script's to delete.
bool isLoose(const QObject* object)
{
    const auto* widget = qobject_cast<const QWidget*>(object);
    return !object->parent() || (widget && widget->isWindow());
}

} // namespace

QLuaOwnership::~QLuaOwnership()
{
    if (!m_object)
        return;
    // The script may still be building: a widget let go of now may be put in
    // a dialog by a layout the script holds. Whether it is loose is decided
    // once the event loop runs again, and deleteLater waits for the loop that
    // might be inside one of the object's own signals.
    QPointer<QObject> object = m_object;
    QCoreApplication* application = QCoreApplication::instance();
    if (!application) {
        if (isLoose(object))
            delete object.data();
        return;
    }
    QMetaObject::invokeMethod(
        application,
        [object] {
            if (object && isLoose(object))
                object->deleteLater();
        },
        Qt::QueuedConnection);
}

void QLuaOwnership::keep(const std::shared_ptr<QLuaOwnership>& other)
{
    if (other && other.get() != this)
        m_kept.push_back(other);
}
