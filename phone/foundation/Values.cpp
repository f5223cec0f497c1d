#include "phone/foundation/Values.h"

#include "phone/foundation/Correct.h"
#include "platform/foundation/NSCharacterSet.h"
#include "platform/foundation/NSIndexPath.h"
#include "platform/foundation/NSNumber.h"
#include "platform/foundation/NSString.h"

namespace phone {

namespace {

enum Position : objc::UInt { SectionPosition, RowPosition, PositionCount };

id indexPathForRow(id cls, SEL, objc::Int row, objc::Int section) {
    const objc::UInt positions[PositionCount] = {static_cast<objc::UInt>(section), static_cast<objc::UInt>(row)};
    return objc::detail::call<id>(cls, objc::selector<"indexPathWithIndexes:length:">(), &positions[0],
                                  objc::UInt(PositionCount));
}

template <Position At>
objc::Int position(id self, SEL) {
    return static_cast<objc::Int>(
        objc::detail::call<objc::UInt>(self, objc::selector<"indexAtPosition:">(), objc::UInt(At)));
}

// A rectangle of ours and Foundation's own have one layout, and so one value.
id valueWithCGRect(id cls, SEL, CGRect rect) {
    return objc::detail::call<id>(cls, objc::selector<"valueWithRect:">(), rect);
}

CGRect rectValue(id self, SEL) { return objc::detail::call<CGRect>(self, objc::selector<"rectValue">()); }

/// GNUstep's own leaves out the separators of lines and paragraphs.
id newlineCharacterSet(id cls, SEL) {
    const auto newlines = "\n\v\f\r\u0085\u2028\u2029"_ns;
    return objc::detail::call<id>(cls, objc::selector<"characterSetWithCharactersInString:">(), newlines.raw());
}

} // namespace

void installValues() {
    const Class path = objc::classOf<NSIndexPath>();
    extendClass<"indexPathForRow:inSection:">(path, &indexPathForRow);
    extend<"section">(path, &position<SectionPosition>);
    extend<"row">(path, &position<RowPosition>);

    const Class value = objc::classOf<NSValue>();
    extendClass<"valueWithCGRect:">(value, &valueWithCGRect);
    extend<"CGRectValue">(value, &rectValue);

    correctClass<"newlineCharacterSet">(objc::classOf<NSCharacterSet>(), &newlineCharacterSet);
}

} // namespace phone
