#pragma once

#include <QImage>
#include <QWidget>

#include <string_view>

namespace quillshift {

/// A picture of a file, drawn as finely as the screen can. Nothing where the bytes are no picture.
class Picture final : public QWidget {
    Q_OBJECT

public:
    /// `bytes`: of a picture file; where it tells 192 dots per inch, two of them make a unit of length.
    explicit Picture(std::string_view bytes, QWidget* parent = nullptr);

    bool IsEmpty() const { return image_.isNull(); }
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QImage image_;
};

} // namespace quillshift
