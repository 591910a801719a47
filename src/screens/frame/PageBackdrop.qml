pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// One very large blurred symbol behind a page, drifting between two poses. It is drawn once and
// then only moved, and it rests where nobody would see it.
Item {
    id: backdrop

    property string screen
    /// Somebody is looking at the window.
    readonly property bool seen: Window.visibility !== Window.Hidden
                                 && Window.visibility !== Window.Minimized && Window.active
    readonly property bool drifts: seen && visible && !Motion.reduced
    /// 0 to 1 is the way to the second pose, 1 to 2 the way back.
    property real phase: 0
    readonly property real way: phase <= 1 ? phase : 2 - phase
    /// How far the second pose is reached; slow at both ends.
    readonly property real drift: way * way * (3 - 2 * way)
    readonly property string symbol: {
        switch (screen) {
        case "home":
            return "externaldrive.fill";
        case "clean":
            return "wand.and.sparkles";
        case "purge":
            return "hammer.fill";
        case "installer":
            return "opticaldisc.fill";
        case "uninstall":
            return "square.grid.2x2.fill";
        case "analyze":
            return "chart.pie.fill";
        case "status":
            return "waveform.path.ecg";
        case "settings":
            return "gearshape.fill";
        default:
            return "sparkles";
        }
    }
    /// Smooth where the graphics hardware moves it. Else in steps of few pixels, each of which
    /// draws the whole window: so blurred a shape does not show them.
    readonly property int stepTime: 500

    function move(milliseconds: real) {
        phase = (phase + milliseconds / Motion.backdrop) % 2;
    }

    Accessible.ignored: true
    clip: true

    FrameAnimation {
        running: backdrop.drifts && !Motion.software
        onTriggered: backdrop.move(Math.min(100, frameTime * 1000))
    }

    Timer {
        interval: backdrop.stepTime
        repeat: true
        running: backdrop.drifts && Motion.software
        onTriggered: backdrop.move(interval)
    }

    BlurredSymbol {
        blur: 48
        color: Theme.palette.accentTint
        height: 460
        name: backdrop.symbol
        rotation: -14 + 12 * backdrop.drift
        size: 460
        width: 460
        x: backdrop.width - width + 80 + 70 * backdrop.drift
        y: -80 + 90 * backdrop.drift
    }
}
