pragma ComponentBehavior: Bound
import QtQuick

// The spring of the toasts: a response of 0.35 s at 0.82 of the critical damping. The numbers are
// those of the animation's own steps of 16 ms: with w = 2 pi / 0.35 they are w * w * 0.016 and
// 2 * 0.82 * w * 0.016.
SpringAnimation {
    damping: 0.471
    spring: 5.156
}
