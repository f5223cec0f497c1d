#include "Quorvan/note/KeptText.h"

#include "Quorvan/common/Resources.h"

namespace quorvan {

namespace {

constexpr const char* file = "noteText.plist";

// docs/kept.md: crossed names
constexpr const char* textKey = "Title";
constexpr const char* titleKey = "Header";

// What the file holds, in every language, when there is nothing.
constexpr const char* noText = "  Note";
constexpr const char* noTitle = "Title";

/// A text of the file; nil when it is missing, empty or no text.
NSString savedText(const NSDictionary& saved, const char* key) {
    const auto value = saved.at<NSString>(NSString::utf8(key));
    return objc::isKind<NSString>(value) && !isEmpty(value) ? value : NSString();
}

} // namespace

KeptText KeptText::read() {
    const bool wanted = isOn(preference::keepUnsavedText);
    const auto saved = NSDictionary::withContentsOfFile(resourcePath(file));
    if (!wanted) {
        return {};
    }
    KeptText kept{savedText(saved, textKey), savedText(saved, titleKey)};
    if (kept.text.isEqualToString(NSString::utf8(noText)) || kept.text.isEqualToString(placeholder("Note"))) {
        kept.text = nullptr;
    }
    if (kept.title.isEqualToString(NSString::utf8(noTitle))) {
        kept.title = nullptr;
    }
    return kept;
}

void KeptText::write() const {
    const auto saved = objc::make<NSMutableDictionary>();
    saved.set(text ? text : NSString::utf8(noText), NSString::utf8(textKey));
    saved.set(title ? title : NSString::utf8(noTitle), NSString::utf8(titleKey));
    (void)saved.writeToFile(resourcePath(file), true);
}

} // namespace quorvan
