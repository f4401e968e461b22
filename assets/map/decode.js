// Decodes the points of the outlines and the towns, which encode.mjs encoded.

var digitValues = (function () {
    var digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
    var values = {}, i;
    for (i = 0; i < digits.length; i += 1) {
        values[digits.charAt(i)] = i;
    }
    return values;
}());

// Returns the points of a path, each as latitude and longitude in degrees.
function decodePath(text) {
    var points = [], sums = [0, 0];  // the longitude and the latitude in hundredths of a degree
    var which = 0, number = 0, weight = 1, i, digit;
    for (i = 0; i < text.length; i += 1) {
        digit = digitValues[text.charAt(i)];
        number += digit % 32 * weight;
        weight *= 32;
        if (digit < 32) {
            sums[which] += number % 2 ? -(number + 1) / 2 : number / 2;
            number = 0;
            weight = 1;
            which = 1 - which;
            if (which === 0) {
                points.push([sums[1] / 100, sums[0] / 100]);
            }
        }
    }
    return points;
}

// Returns the paths of a layer of outlines.
function decodePaths(text) {
    return text.split(" ").map(decodePath);
}
