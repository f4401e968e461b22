// Encodes points compactly as text. decode.js reads it in the page.

const stepsPerDegree = 100;
const digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";

// Returns the digits of a whole number: five bits in each, the lowest first; the sixth bit says that
// another digit follows. The lowest bit of all is the sign.
function encodeNumber(number) {
    let rest = number < 0 ? -2 * number - 1 : 2 * number;
    let text = "";
    for (; rest >= 32; rest = Math.floor(rest / 32)) text += digits[32 + rest % 32];
    return text + digits[rest];
}

// Encodes points, each a longitude and a latitude in degrees: the first one, then the steps from one to
// the next, in hundredths of a degree. Leaves out points that do not differ from the one before. Returns
// null when fewer than `fewest` points are left.
export function encodePath(points, fewest) {
    let text = "", count = 0, lastX = 0, lastY = 0;
    for (const [longitude, latitude] of points) {
        const x = Math.round(longitude * stepsPerDegree), y = Math.round(latitude * stepsPerDegree);
        if (count > 0 && x === lastX && y === lastY) continue;
        text += encodeNumber(x - lastX) + encodeNumber(y - lastY);
        count += 1;
        [lastX, lastY] = [x, y];
    }
    return count >= fewest ? text : null;
}
