#include "platform/qt/QtBackground.h"

#include <QObject>

#include <mutex>
#include <system_error>
#include <thread>
#include <utility>

namespace quillshift {

// Outlives the program's part of it for as long as a thread has something to tell.
struct QtBackground::Receiver {
    std::mutex mutex;
    std::unique_ptr<QObject> object = std::make_unique<QObject>(); // none once nobody listens

    void Post(std::function<void()> answer) {
        const std::scoped_lock lock(mutex);
        if (object)
            QMetaObject::invokeMethod(object.get(), std::move(answer), Qt::QueuedConnection);
    }
};

QtBackground::QtBackground() : receiver_(std::make_shared<Receiver>()) {}

QtBackground::~QtBackground() {
    const std::scoped_lock lock(receiver_->mutex);
    receiver_->object.reset();
}

void QtBackground::Run(std::function<std::function<void()>()> work) {
    try {
        std::thread([receiver = receiver_, work = std::move(work)] { receiver->Post(work()); }).detach();
    } catch (const std::system_error&) {
        return; // no thread to be had: as a work that never comes back
    }
}

} // namespace quillshift
