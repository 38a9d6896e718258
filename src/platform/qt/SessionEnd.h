#pragma once

#include <QObject>

#include <functional>

namespace quillshift {

/// Hears from the session manager of the desktop's end: first that it may come, when it can still be called
/// off, then that it is there. The toolkit would close the windows one by one then, as if the user had. There
/// is one of these.
class SessionEnd final : public QObject {
public:
    SessionEnd(std::function<void()> mayCome, std::function<void()> isThere);

private:
    bool eventFilter(QObject* watched, QEvent* event) override;

    std::function<void()> isThere_;
};

} // namespace quillshift
