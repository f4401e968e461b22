// The feeds whose pages the map test opens. As a program this file prints them by name for the desktop
// test in which the program writes the pages.
import { fileURLToPath } from "node:url";

const escape = (text) => text.replaceAll("&", "&amp;").replaceAll("<", "&lt;").replaceAll("\"", "&quot;");
const element = ([id, name, latitude, longitude]) => `<aws:station id="${escape(id)}" name="${escape(name)}" city="Here"`
    + ` state="NY" station-type="NWS" zipcode="10001" latitude="${latitude}" longitude="${longitude}"/>`;
const feed = (stations, extra = "") => `<?xml version="1.0"?>\r\n<aws:weather xmlns:aws="http://aws.example/">\n`
    + `${stations.map(element).join("\r\n")}${extra}</aws:weather>\r\n`;

// Stations: identifier, name, latitude, longitude.
export const three = [["KNYC", "Central Park", "40.78", "-73.97"], ["4711", "School (PS 9 )", "40.78", "-73.47"],
    ["W-3", "Park (", "41.08", "-73.97"]];

const unusable = [["", "1"], ["1", ""], ["90.1", "0"], ["0", "-180.5"], ["NaN", "0"], ["1,5", "2"], ["Infinity", "0"]]
    .map((place) => ["x", "X", ...place]);

const act = "window.hacked=1";
export const hostile = ["\"", "C:\\", "\\\"", `";${act};//`, `\\";${act};//`, "O'Hare", "]]>", "-->", "<!-- <script>",
    `</script><script>${act}</script>`, `</plaintext><img src=x onerror=${act}>`, `<img src=x onerror=${act}>`,
    "[XML]", "$& $1 $`", "&lt;b&gt; &amp;", "SVSelectedCity", "Łódź \u{1F327}"]
    .map((text, i) => [text, text, String(30 + i), "-100"]);

// Other content of a feed. A station follows each; the last one is at the coordinates of its station.
const markup = `</textarea></xmp></plaintext></script><script>${act}</script><img src=x onerror=${act}>`;
const oddities = [`<!-- ${markup} -->`, `<![CDATA[${markup}]]>`, `<?pi ${markup}?>`, `<script>${act}</script>`,
    `<plaintext></plaintext><img src="x" onerror="${act}"/>`, "\n\\\n\\", "\\",
    "<aws:other id=\"x\" latitude=\"7\" longitude=\"2\"/>"];
export const afterOddities = oddities.map((_, i) => [`after${i}`, `After ${i}`, String(i), "2"]);

const many = Array.from({ length: 500 },
    (_, i) => [`s${i}`, `Station ${i}`, 25 + i % 25, -120 + Math.floor(i / 25) * 2.5]);

if (process.argv[1] === fileURLToPath(import.meta.url)) {
    console.log(JSON.stringify({
        three: feed(three), unusable: feed(unusable), many: feed(many),
        hostile: feed(hostile, oddities.map((oddity, i) => oddity + element(afterOddities[i])).join("")),
    }));
}
