/// The least that a library with the same four hooks is: each only calls what it replaced. Its size stands beside the
/// library's own.
extern "C" {
using id = struct objc_object*;
using Class = struct objc_class*;
using SEL = struct objc_selector*;
using IMP = void (*)(id, SEL, signed char);

Class objc_getClass(const char* name);
SEL sel_registerName(const char* name);
bool class_addMethod(Class cls, SEL name, IMP imp, const char* types);
void MSHookMessageEx(Class cls, SEL selector, IMP replacement, IMP* previous);
}

namespace {

constexpr int hooks = 4;
IMP previous[hooks];

template <int hook>
void replacement(id self, SEL selector, signed char animated) {
    previous[hook](self, selector, animated);
}

void invokeShare(id, SEL, signed char) {}

[[gnu::constructor]] void load() {
    const Class newer = objc_getClass("PHCallViewController");
    MSHookMessageEx(newer, sel_registerName("viewDidAppear:"), &replacement<0>, &previous[0]);
    class_addMethod(newer, sel_registerName("invokeShare:"), &invokeShare, "v@:");
    const Class older = objc_getClass("InCallController");
    MSHookMessageEx(older, sel_registerName("viewDidLoad"), &replacement<1>, &previous[1]);
    MSHookMessageEx(older, sel_registerName("loadView"), &replacement<2>, &previous[2]);
    MSHookMessageEx(older, sel_registerName("viewDidAppear:"), &replacement<3>, &previous[3]);
    class_addMethod(older, sel_registerName("invokeShare:"), &invokeShare, "v@:");
}

} // namespace
