#include "wizard/command/LineWriter.h"

#include <algorithm>

namespace quillshift::wizard {

void LineWriter::Pass(std::string_view bytes) {
    out_ << bytes;
    isFirst_ = false;
}

void LineWriter::Write(const std::string& text, std::string_view bytes) {
    const auto output = isFirst_ ? Output(text, target_, stored_) : Encode(SetOf(target_, stored_), text);
    unfit_ = unfit_ || !output;
    Pass(output ? std::string_view(*output) : bytes);
}

void LineWriter::Repair(LineRepair& lines, std::string_view block) {
    text_.clear();
    if (target_ != Target::Utf8)
        return RepairEach(lines, block);
    lines.Add(block, text_);
    if (isFirst_ && lines.Changed())
        text_ = *Output(text_, Target::Utf8, Set::Utf8);
    Pass(text_);
}

/// For another set than UTF-8: what stays as it is must not be written in it.
void LineWriter::RepairEach(LineRepair& lines, std::string_view block) {
    std::size_t start = 0;
    for (std::size_t at = 0, end = 0; at < block.size(); at = end) {
        end = std::min(block.find('\n', at), block.size() - 1) + 1;
        const std::size_t unsureBefore = lines.Unsure(), size = text_.size();
        lines.Add(block.substr(at, end - at), text_);
        if (lines.Unsure() == unsureBefore)
            continue;
        text_.resize(size);
        Write(text_, block.substr(start, at - start));
        Pass(block.substr(at, end - at));
        text_.clear();
        start = end;
    }
    Write(text_, block.substr(start));
}

} // namespace quillshift::wizard
