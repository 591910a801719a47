pragma ComponentBehavior: Bound
import QtQuick

Item {
    property string title
}
