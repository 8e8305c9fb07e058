import QtQuick.Templates as T

T.Button {}
