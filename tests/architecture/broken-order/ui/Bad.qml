import QtQuick
import QtQuick.Controls.Basic

Item {
    MouseArea {}
    SoftButton {
        background: null
    }
}
