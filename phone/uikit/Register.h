/// Registers the classes of this folder with the runtime. All of them exist before the first library is loaded.
#pragma once

namespace phone {

void registerDrawingClasses(); // UIColor, UIFont, UIImage, UIImageView, UILabel
void registerViewClasses(); // UIResponder, UIView, CALayer, UIWindow, UIScreen, UIDevice, UIApplication, recognisers,
                            // touches
void registerControllerClasses(); // UIViewController, navigation, bars, UIActivity, the share sheet
void registerTextClasses();       // UIControl and its kin, UIScrollView, text input, the keyboard, tables

} // namespace phone
