"""The places of the demonstration feed: (city, state or country, code, is ZIP code, latitude, longitude)."""

UNITED_STATES = """
Albany|New York|12207|42.65|-73.75
Albuquerque|New Mexico|87102|35.08|-106.65
Anchorage|Alaska|99501|61.22|-149.88
Atlanta|Georgia|30303|33.75|-84.39
Austin|Texas|78701|30.27|-97.74
Baltimore|Maryland|21202|39.29|-76.61
Billings|Montana|59101|45.78|-108.50
Birmingham|Alabama|35203|33.52|-86.81
Boise|Idaho|83702|43.62|-116.20
Boston|Massachusetts|02108|42.36|-71.06
Boulder|Colorado|80302|40.02|-105.27
Buffalo|New York|14202|42.89|-78.88
Burlington|Vermont|05401|44.48|-73.21
Charleston|South Carolina|29401|32.78|-79.93
Charleston|West Virginia|25301|38.35|-81.63
Charlotte|North Carolina|28202|35.23|-80.84
Cheyenne|Wyoming|82001|41.14|-104.82
Chicago|Illinois|60601|41.88|-87.63
Cleveland|Ohio|44113|41.50|-81.69
Columbia|Missouri|65201|38.95|-92.33
Columbia|South Carolina|29201|34.00|-81.03
Dallas|Texas|75201|32.78|-96.80
Denver|Colorado|80202|39.74|-104.99
Des Moines|Iowa|50309|41.59|-93.62
Detroit|Michigan|48226|42.33|-83.05
Fargo|North Dakota|58102|46.88|-96.79
Honolulu|Hawaii|96813|21.31|-157.86
Houston|Texas|77002|29.76|-95.37
Jackson|Mississippi|39201|32.30|-90.18
Joplin|Missouri|64801|37.08|-94.51
Kansas City|Missouri|64106|39.10|-94.58
Lawrence|Kansas|66044|38.97|-95.24
Las Vegas|Nevada|89101|36.17|-115.14
Lincoln|Nebraska|68508|40.81|-96.70
Little Rock|Arkansas|72201|34.75|-92.29
Los Angeles|California|90012|34.05|-118.24
Louisville|Kentucky|40202|38.25|-85.76
Manchester|New Hampshire|03101|42.99|-71.46
Miami|Florida|33130|25.77|-80.19
Milwaukee|Wisconsin|53202|43.04|-87.91
Minneapolis|Minnesota|55401|44.98|-93.27
Moore|Oklahoma|73160|35.34|-97.49
Nashville|Tennessee|37203|36.16|-86.78
New Haven|Connecticut|06510|41.31|-72.92
New Orleans|Louisiana|70112|29.95|-90.07
New York|New York|10007|40.71|-74.01
Norman|Oklahoma|73069|35.22|-97.44
Oklahoma City|Oklahoma|73102|35.47|-97.52
Philadelphia|Pennsylvania|19107|39.95|-75.17
Phoenix|Arizona|85004|33.45|-112.07
Portland|Maine|04101|43.66|-70.26
Portland|Oregon|97204|45.52|-122.68
Providence|Rhode Island|02903|41.82|-71.41
Rapid City|South Dakota|57701|44.08|-103.23
Salt Lake City|Utah|84111|40.76|-111.89
San Francisco|California|94102|37.77|-122.42
Seattle|Washington|98104|47.61|-122.33
Springfield|Illinois|62701|39.80|-89.65
Springfield|Massachusetts|01103|42.10|-72.59
Springfield|Missouri|65806|37.21|-93.29
Springfield|Ohio|45502|39.92|-83.81
Springfield|Oregon|97477|44.05|-123.02
Topeka|Kansas|66603|39.05|-95.68
Tulsa|Oklahoma|74103|36.15|-95.99
Washington|District of Columbia|20004|38.90|-77.04
Wichita|Kansas|67202|37.69|-97.34
"""

ABROAD = """
Halifax|Canada|59105|44.65|-63.57
Hamilton|Bermuda|58211|32.29|-64.78
Nassau|Bahamas|57430|25.05|-77.36
Toronto|Canada|59177|43.65|-79.38
"""


def _read_table(table, by_zip):
    for line in table.strip().splitlines():
        city, region, code, latitude, longitude = line.split("|")
        yield city, region, code, by_zip, float(latitude), float(longitude)


PLACES = [*_read_table(UNITED_STATES, True), *_read_table(ABROAD, False)]
