#include "phone/uikit/AnimationCurve.h"

namespace phone {

namespace {

/// One coordinate of a cubic curve from 0 to 1 with these control values.
double bezier(double first, double second, double t) {
    const double rest = 1 - t;
    return 3 * rest * rest * t * first + 3 * rest * t * t * second + t * t * t;
}

/// The height of the curve with control points (x1, 0) and (x2, 1) where it is at `x`.
double heightAt(double x1, double x2, double x) {
    double low = 0;
    double high = 1;
    constexpr int halvings = 40;
    for (int i = 0; i < halvings; ++i) {
        const double middle = (low + high) / 2;
        (bezier(x1, x2, middle) < x ? low : high) = middle;
    }
    return bezier(0, 1, (low + high) / 2);
}

} // namespace

double eased(UIViewAnimationCurve curve, double time) {
    if (time <= 0 || time >= 1) {
        return time <= 0 ? 0 : 1;
    }
    switch (curve) {
    case UIViewAnimationCurve::EaseInOut:
        return heightAt(0.42, 0.58, time);
    case UIViewAnimationCurve::EaseIn:
        return heightAt(0.42, 1, time);
    case UIViewAnimationCurve::EaseOut:
        return heightAt(0, 0.58, time);
    case UIViewAnimationCurve::Linear:
        break;
    }
    return time;
}

} // namespace phone
