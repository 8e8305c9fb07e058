import QtQuick
import QtQuick.Controls.Basic

Item {
    MouseArea {}
}
