pragma ComponentBehavior: Bound
import QtQuick
import QtTest
import Zolva.Kit

/// Every piece of the kit in every state, to be looked at and to be drawn in both themes.
Rectangle {
    id: gallery

    color: Theme.palette.win
    height: 640
    width: 900

    BlurredSymbol {
        color: Theme.palette.accentTint
        name: "gearshape.fill"
        x: 380
        y: 150
    }

    Column {
        spacing: 14
        x: 24
        y: 20

        Label {
            size: 28
            text: "Reclaim 0123456789"
            tracking: -0.6
            weight: Font.Bold
        }

        Row {
            spacing: 16

            Repeater {
                model: [10, 11.5, 12, 12.5, 13, 13.5, 14, 15]

                Label {
                    required property real modelData

                    size: modelData
                    text: modelData + " Size 18.06 GB"
                }
            }
        }

        Row {
            spacing: 16

            Repeater {
                model: [Font.Normal, Font.Medium, Font.DemiBold, Font.Bold]

                Label {
                    required property int modelData

                    text: "Weight 111.84 GB"
                    weight: modelData
                }
            }

            Label {
                color: Theme.palette.label2
                mono: true
                size: 11.5
                text: "~/Library/Caches/a->b 10x20"
            }

            Label {
                color: Theme.palette.label3
                mono: true
                size: 12.5
                text: "Größe Ελλάδα Кэш → ✓ 漢字"
            }
        }

        Row {
            spacing: 10

            Repeater {
                model: [PillButton.Accent, PillButton.Neutral, PillButton.Destructive]

                Row {
                    id: pair

                    required property int modelData

                    spacing: 10

                    PillButton {
                        role: pair.modelData
                        title: "Rescan"
                    }

                    PillButton {
                        enabled: false
                        opacity: 0.45
                        role: pair.modelData
                        title: "Disabled"
                    }
                }
            }

            LinkButton {
                anchors.verticalCenter: parent.verticalCenter
                title: "Select all"
            }
        }

        Row {
            spacing: 14

            CheckBox {
            }

            CheckBox {
                on: true
            }

            CheckBox {
                dimmed: true
            }

            CheckBox {
                dimmed: true
                on: true
            }

            Chevron {
            }

            Chevron {
                open: true
            }

            Spinner {
            }

            Spinner {
                size: 24
            }

            HoverFill {
                base: Theme.palette.card
                height: 26
                hover: Theme.palette.cardHover
                radius: 6
                width: 40
            }

            HoverFill {
                base: Theme.palette.card
                height: 26
                hover: Theme.palette.btnHover
                hovering: true
                radius: 6
                width: 40
            }

            Item {
                height: 26
                width: 60

                FocusRing {
                }
            }
        }

        Row {
            spacing: 16

            Mascot {
                symbol: "sparkles"
            }

            Mascot {
                symbol: "trash.fill"
                tint: Theme.palette.red
            }

            Mascot {
                symbol: "shippingbox.fill"
                tint: Theme.palette.green
                width: 60
            }

            Card {
                height: 88
                width: 200

                FieldLabel {
                    text: "Appearance"
                    x: 16
                    y: 14
                }

                Separator {
                    width: 168
                    x: 16
                    y: 44
                }
            }

            Item {
                height: 88
                width: 180

                Shadow {
                    anchors.fill: sheet
                }

                Rectangle {
                    id: sheet

                    color: Theme.palette.sheet
                    height: 60
                    radius: 12
                    width: 160
                    x: 10
                    y: 10
                }
            }
        }

        Grid {
            columns: 18
            spacing: 12

            Repeater {
                model: ["house", "sparkles", "folder.badge.minus", "square.and.arrow.down", "trash", "trash.fill", "chart.pie", "chart.pie.fill", "gauge.with.needle", "slider.horizontal.3", "externaldrive.fill", "wand.and.sparkles", "hammer.fill", "opticaldisc.fill", "square.grid.2x2.fill", "waveform.path.ecg", "gearshape.fill", "gearshape", "arrow.clockwise", "arrow.up.arrow.down", "info.circle.fill", "exclamationmark.triangle.fill", "checkmark.circle.fill", "xmark", "magnifyingglass", "chevron.right", "folder", "folder.fill", "doc.fill", "lock.open.fill", "lock.fill", "shippingbox.fill", "macwindow", "power", "checkmark"]

                Symbol {
                    required property string modelData
                    required property int index

                    color: Theme.palette.label
                    name: modelData
                    size: index % 2 ? 24 : 16
                    weight: index % 3 ? Font.Medium : Font.Normal
                }
            }
        }
    }

    NoiseOverlay {
        anchors.fill: parent
        opacity: 0.04
    }

    TestCase {
        name: "KitGallery"
        when: windowShown

        function init() {
            Motion.reduced = true; // two pictures are compared
        }

        function cleanup() {
            Motion.reduced = false;
            Theme.light = true;
        }

        function picture() {
            wait(0);
            return grabImage(gallery);
        }

        function test_theGroundIsThatOfTheThemeInEffect() {
            let light = picture();
            verify(light.red(4, 620) >= 250 && light.blue(4, 620) >= 250);
            Theme.light = false;
            let dark = picture();
            verify(Math.abs(dark.red(4, 620) - 0x1C) <= 3);
            verify(Math.abs(dark.blue(4, 620) - 0x1E) <= 3);
        }

        function test_everyPieceIsDrawnAnewWithTheTheme() {
            let light = picture();
            Theme.light = false;
            verify(!light.equals(picture()));
            Theme.light = true;
            verify(light.equals(picture()), "the same theme looks the same again");
        }
    }
}
